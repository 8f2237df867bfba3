"""Prints what the Debian package python3-ezdxf finds in drawings, one JSON object a line: the number of entities of each
type, in all layouts and blocks together, and the layers. Ends with 77 where the package is missing."""
import collections
import json
import sys

try:
    import ezdxf
except ImportError:
    sys.exit(77)

for path in sys.argv[1:]:
    drawing = ezdxf.readfile(path)
    # A layout is a block as well.
    types = collections.Counter(entity.dxftype() for block in drawing.blocks for entity in block)
    layers = collections.Counter(entity.dxf.layer for block in drawing.blocks for entity in block)
    print(json.dumps({"types": types, "layers": layers, "names": [layer.dxf.name for layer in drawing.layers],
                      "version": drawing.dxfversion}))
