"""scripts/package makes the packages, and says what it made."""
import hashlib
import os
import subprocess
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))


RELEASE = os.path.join(ROOT, "build", "release")


def compile_several_sources_at_a_time(choice):
    subprocess.run(["cmake", RELEASE, f"-DPLEXORN_UNITY={choice}"], check=True, capture_output=True)


class PackageScript(unittest.TestCase):
    def setUp(self):
        compile_several_sources_at_a_time("ON")
        self.addCleanup(compile_several_sources_at_a_time, "OFF")

    def test_what_it_prints_is_what_it_made(self):
        with tempfile.TemporaryDirectory(prefix="plexorn-packages-") as folder:
            older = os.path.join(folder, "plexorn-0.0.0-linux-x86_64.tar.gz")
            open(older, "w", encoding="utf-8").close()
            result = subprocess.run([os.path.join(ROOT, "scripts", "package"), "-o", folder, "linux"],
                                    capture_output=True, text=True)
            self.assertEqual(result.returncode, 0, result.stderr)
            with open(os.path.join(RELEASE, "CMakeCache.txt"), encoding="utf-8") as file:
                self.assertIn("PLEXORN_UNITY:BOOL=OFF\n", file.read())  # each source by itself
            names = [name for name in sorted(os.listdir(folder)) if name != "SHA256SUMS"]
            self.assertEqual(len(names), 5)
            self.assertFalse(os.path.exists(older))
            expected = {}
            for name in names:
                with open(os.path.join(folder, name), "rb") as file:
                    content = file.read()
                expected[name] = [hashlib.sha256(content).hexdigest(), str(len(content))]
            printed = [line.split() for line in result.stdout.splitlines()]
            self.assertEqual({words[-1]: words[:2] for words in printed}, expected)
            with open(os.path.join(folder, "SHA256SUMS"), encoding="utf-8") as file:
                sums = dict(reversed(line.split()) for line in file)
            self.assertEqual(sums, {name: values[0] for name, values in expected.items()})


if __name__ == "__main__":
    unittest.main()
