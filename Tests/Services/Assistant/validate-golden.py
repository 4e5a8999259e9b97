#!/usr/bin/python3
"""validate-golden.py SCHEMA-FOLDER GOLDEN SCHEMA [GOLDEN SCHEMA]...

Checks pinned messages against the service's published JSON Schemas. Ends with 77, which ctest takes for
"skipped", where the schemas are not at hand.
"""
import json
import pathlib
import sys

folder, *pairs = sys.argv[1:]
if not pathlib.Path(folder).is_dir():
    print(f"no schemas in {folder}")
    sys.exit(77)

import jsonschema  # noqa: E402 (only needed where the schemas are)

faults = 0
for golden, schema in zip(pairs[::2], pairs[1::2]):
    rules = json.loads(pathlib.Path(folder, schema).read_text(encoding="utf-8"))
    message = json.loads(pathlib.Path(golden).read_text(encoding="utf-8"))
    for error in jsonschema.Draft202012Validator(rules).iter_errors(message):
        print(f"{golden}: {error.json_path}: {error.message[:300]}")
        faults += 1
sys.exit(1 if faults else 0)
