#!/usr/bin/env python3
"""A host in Python: example.py DATABASE REPORT FIRST_DAY LAST_DAY, days as DDMMYYYY."""
import sys
from datetime import datetime

import cotepe


def clock() -> datetime:
    """The printer's clock: this one stands still."""
    return datetime(2024, 2, 29, 8, 30)


def write_report(database: str, report: str, first_day: str, last_day: str) -> None:
    with cotepe.Generator(database, layout=2) as generator:
        generator.set_identity("BR0000000000000001", "IMPRESSORA", "ECF-IF")
        generator.generate(
            report, first_day, last_day, "TDM", replace=True, clock=clock,
            on_log=lambda message, reason: print("host:", message, reason, file=sys.stderr))


try:
    write_report(*sys.argv[1:])
except cotepe.CotepeError as error:
    sys.exit(f"cotepe: {error}")
print("cotepe", cotepe.library_version())
