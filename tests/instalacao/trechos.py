#!/usr/bin/env python3
"""Every block of code of a document, but for commands, stands in a file of the examples: trechos.py DOCUMENT FOLDER..."""
import pathlib
import re
import sys

document, *folders = map(pathlib.Path, sys.argv[1:])
files = [f.read_text() for folder in folders for f in folder.rglob("*") if f.is_file()]
blocks = re.findall(r"^```(?!sh$)\w+\n(.*?)^```$", document.read_text(), re.M | re.S)
strange = [b for b in blocks if not any(b in f for f in files)]
sys.exit("\n".join(["in no example:", *strange]) if strange or not blocks else 0)
