"""The packages of a build: what is in them, and that it works where they are unpacked."""
import argparse
import sys
import unittest

import package_support

if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    for name in ("build", "version", "system", "processor", "nm", "addr2line", "objdump", "python"):
        parser.add_argument("--" + name, required=True)
    parser.add_argument("--toolchain", default="")
    parser.add_argument("--emulator", nargs=1, default=[])
    package_support.ARGS, rest = parser.parse_known_args()

    from archives_cases import *  # noqa: E402,F401,F403
    if package_support.ARGS.system == "linux":
        from debian_cases import *  # noqa: E402,F401,F403
    del Unpacked, ExamplePrograms  # noqa: F821 - what the others share is no test
    unittest.main(argv=sys.argv[:1] + rest)
