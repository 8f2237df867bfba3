"""Where the command finds the libraries that it is linked with."""
import os
import shutil
import subprocess

import command_support
from command_support import CommandTest


class Placement(CommandTest):
    def test_the_tree_runs_where_it_is_moved_to(self):
        build = os.path.dirname(os.path.dirname(command_support.COMMAND))
        self.write("plan.dxf")
        for folder in ("bin", "lib"):
            os.makedirs(self.path(f"moved here/{folder}"))
        shutil.copy(command_support.COMMAND, self.path("moved here/bin"))
        for library in ("libPlexorn.so", "libQuillmarLib.so"):
            shutil.copy(os.path.join(build, "lib", library), self.path("moved here/lib"))
        loaded = subprocess.run(["ldd", self.path("moved here/bin/plexorn")], capture_output=True, text=True,
                                check=True).stdout
        for library in ("libPlexorn.so", "libQuillmarLib.so"):
            self.assertIn("moved here/bin/../lib/" + library, loaded)
        result = subprocess.run([self.path("moved here/bin/plexorn"), "-q", "plan.dxf"], cwd=self.folder)
        self.assertEqual(result.returncode, 0)
