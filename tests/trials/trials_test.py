"""The pictures of the trial drawings are those that were looked at: golden pictures, one beside this file for each.

PLEXORN_REWRITE_TRIALS=1 in the environment writes the golden pictures instead of comparing them. Look at them then.
"""
import argparse
import os
import subprocess
import sys
import tempfile
import unittest

import make_trials

HERE = os.path.dirname(os.path.abspath(__file__))
COMMAND = None


class Trials(unittest.TestCase):
    def test_pictures_are_the_golden_ones(self):
        rewrites = os.environ.get("PLEXORN_REWRITE_TRIALS") == "1"
        names = [name for name, _ in make_trials.all_drawings()]
        if not rewrites:
            golden = {name for name in os.listdir(HERE) if name.endswith(".svg")}
            self.assertEqual(golden, {name + ".svg" for name in names})
        with tempfile.TemporaryDirectory(prefix="plexorn-trials-") as folder:
            make_trials.main(folder)
            for name in names:
                with self.subTest(trial=name):
                    self.check(folder, name, rewrites)
        if rewrites:
            self.skipTest("the golden pictures are written again")

    def check(self, folder, name, rewrites):
        picture = os.path.join(folder, name + ".svg")
        result = subprocess.run([COMMAND, "-q", name + ".dxf", "-o", picture], cwd=folder, capture_output=True,
                                text=True)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        with open(picture, "rb") as file:
            drawn = file.read()
        golden = os.path.join(HERE, name + ".svg")
        if rewrites:
            with open(golden, "wb") as file:
                file.write(drawn)
            return
        with open(golden, "rb") as file:
            self.assertTrue(drawn == file.read(), f"{golden} differs")


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--command", required=True)
    args, rest = parser.parse_known_args()
    COMMAND = args.command
    unittest.main(argv=sys.argv[:1] + rest)
