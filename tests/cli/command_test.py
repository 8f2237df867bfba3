"""The command plexorn: every option, exit code and message, run as its users run it. The arguments name the modules whose
cases are run."""
import argparse
import sys
import unittest

import command_support

if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--command", required=True)
    parser.add_argument("--version", required=True)
    parser.add_argument("--preload", help="the library that lets calls of the system fail")
    parser.add_argument("--emulator", nargs="+", default=[])
    args, rest = parser.parse_known_args()
    command_support.COMMAND = args.command
    command_support.VERSION = args.version
    command_support.PRELOAD = args.preload
    command_support.EMULATOR = args.emulator
    unittest.main(module=None, argv=sys.argv[:1] + rest)
