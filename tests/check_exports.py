#!/usr/bin/env python3
"""The member tables, the public header and the library's dynamic symbols
name the same functions, and the committed header is the generated one."""
import os
import re
import subprocess
import sys

lib, header, generated = sys.argv[1:4]
root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
table = set(subprocess.run([sys.executable, os.path.join(root, "tools", "kelgen.py"), "names"],
                           check=True, capture_output=True, text=True).stdout.split())
table.add("kelmGetLibVersion")
nm = subprocess.run(["nm", "-D", "--defined-only", lib], check=True, capture_output=True, text=True).stdout
symbols = {line.split()[-1] for line in nm.splitlines() if line.strip()}
declared = set(re.findall(r"KELM_API\s+[\w\s\*]*?\b(kelm\w+)\s*\(", open(header).read()))

ok = True
for what, names in (("nm -D", symbols), ("kelm.h", declared)):
    extra, missing = names - table, table - names
    if extra or missing:
        ok = False
        print(f"{what}: {len(extra)} not in the tables {sorted(extra)[:10]}, "
              f"{len(missing)} missing {sorted(missing)[:10]}")
if open(header).read() != open(generated).read():
    ok = False
    print("include/kelm.h differs from the header generated from the tables: run `cmake --build build --target update-header`")
print(f"{len(table)} exports checked: " + ("1 passed, 0 failed" if ok else "0 passed, 1 failed"))
sys.exit(0 if ok else 1)
