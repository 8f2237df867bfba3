"""The command plexorn: every option, exit code and message, run as its users run it."""
import argparse
import sys
import unittest

import command_support

if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--command", required=True)
    parser.add_argument("--version", required=True)
    parser.add_argument("--emulator", nargs="+", default=[])
    args, rest = parser.parse_known_args()
    command_support.COMMAND = args.command
    command_support.VERSION = args.version
    command_support.EMULATOR = args.emulator
    modules = ["options_cases", "messages_cases", "json_cases", "sniffing_cases", "files_cases", "many_cases", "info_cases",
               "picture_cases"]
    if not args.emulator:
        modules.append("posix_cases")
    unittest.main(module=None, argv=sys.argv[:1] + (rest or modules))
