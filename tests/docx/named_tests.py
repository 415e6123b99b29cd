#!/usr/bin/env python3
"""Whether each test that a page names in backquotes, as `Suite.Name`, is one of a test program's.

named_tests.py TEST_PROGRAM PAGE.md
"""
import re
import subprocess
import sys

program, page = sys.argv[1:]
listed = subprocess.run([program, "--gtest_list_tests"], capture_output=True, text=True, check=True).stdout
tests, suite = set(), ""
for line in listed.splitlines():
    if line.startswith("  "):
        tests.add(suite + line.strip().split(" ")[0])
    elif line.strip().endswith("."):
        suite = line.strip()
text = open(page, encoding="utf8").read()
named = set(re.findall(r"`([A-Z]\w+\.[A-Z]\w+)`", text))
if not named:
    sys.exit(f"{page} names no test")
missing = sorted(named - tests)
for name in missing:
    print(f"no such test: {name}")
print(f"{len(named)} tests named, {len(missing)} of them missing")
sys.exit(1 if missing else 0)
