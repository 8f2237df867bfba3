"""Reads a drawing as the pairs of lines that it is, knowing nothing of the scripts that write drawings."""
import re

CODE = re.compile(r" *[0-9]{1,4}\Z")


class Record:
    """One object of a drawing: its kind and its (code, value) pairs."""

    def __init__(self, kind, section):
        self.kind = kind
        self.section = section
        self.pairs = []
        self.block = None  # name of the block definition that holds it

    def values(self, code):
        return [value for own, value in self.pairs if own == code]

    def first(self, code, default=None):
        return next(iter(self.values(code)), default)


def pairs(text):
    """The (code, value) pairs of a whole file; ValueError where a line is not what it has to be."""
    lines = text.split("\n")
    if lines.pop() != "" or len(lines) % 2:
        raise ValueError("the last pair is not whole")
    for number, line in enumerate(lines[::2]):
        if not CODE.match(line):
            raise ValueError("line %d is no group code: %r" % (2 * number + 1, line))
    return list(zip(map(int, lines[::2]), lines[1::2]))


class Drawing:
    def __init__(self, data):
        text = data.decode("utf-8")
        self.crlf = "\r" in text
        if self.crlf and text.count("\r\n") != text.count("\n"):
            raise ValueError("line ends are mixed")
        self.records = list(self._records(pairs(text.replace("\r\n", "\n"))))

    @staticmethod
    def _records(all_pairs):
        section, block, record = None, None, None
        for code, value in all_pairs:
            if code != 0:
                if record is not None:
                    record.pairs.append((code, value))
                continue
            if record is not None:
                section = record.first(2) if record.kind == "SECTION" else section
                block = record.first(2) if record.kind == "BLOCK" else None if record.kind == "ENDBLK" else block
                yield record
            record = Record(value, section if record is None or record.kind != "SECTION" else record.first(2))
            record.block = record.first(2) if value == "BLOCK" else block
        yield record

    def table(self, kind):
        """The names that a table defines."""
        return [record.first(2) for record in self.records if record.section == "TABLES" and record.kind == kind]

    def graphics(self):
        """Every entity, those of blocks included."""
        return [record for record in self.records if record.section in ("BLOCKS", "ENTITIES")
                and record.kind not in ("SECTION", "ENDSEC", "BLOCK", "ENDBLK")]

    def blocks(self):
        return [record.first(2) for record in self.records if record.kind == "BLOCK"]
