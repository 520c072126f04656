#!/usr/bin/env python3
"""A host in Python, through ctypes: gera.py DATABASE REPORT FIRST_DAY LAST_DAY, days as DDMMYYYY."""
import ctypes
import os
import sys

sqlite = ctypes.CDLL("libsqlite3.so.0")  # the one that libcotepe is linked with
cotepe = ctypes.CDLL("libcotepe.so.0")


class Time(ctypes.Structure):
    _fields_ = [(name, ctypes.c_int) for name in ("year", "month", "day", "hour", "minute", "second")]


LogCallback = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_char_p)
ClockCallback = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.POINTER(Time))

pointer, text = ctypes.c_void_p, ctypes.c_char_p
sqlite.sqlite3_open_v2.argtypes = [text, ctypes.POINTER(pointer), ctypes.c_int, text]
sqlite.sqlite3_close.argtypes = [pointer]
cotepe.cotepe_create.argtypes = [pointer, ctypes.POINTER(pointer)]
cotepe.cotepe_destroy.argtypes = [pointer]
cotepe.cotepe_set_layout.argtypes = [pointer, ctypes.c_int]
cotepe.cotepe_set_identity.argtypes = [pointer, text, text, text]
cotepe.cotepe_set_log.argtypes = [pointer, LogCallback, pointer]
cotepe.cotepe_set_clock.argtypes = [pointer, ClockCallback, pointer]
cotepe.cotepe_generate.argtypes = [pointer, text, text, text, text]
cotepe.cotepe_result_text.restype = text
cotepe.cotepe_version.restype = text


@LogCallback
def on_log(_user, message):
    print("host:", message.decode(), file=sys.stderr)
    return 0


@ClockCallback
def on_clock(_user, now):
    now[0] = Time(2024, 2, 29, 8, 30, 0)
    return 0


def check(result):
    if result != 0:
        sys.exit(f"cotepe: {cotepe.cotepe_result_text(result).decode()}")


if len(sys.argv) != 5:
    sys.exit(2)
database_name, report, first_day, last_day = map(os.fsencode, sys.argv[1:])
database, generator = pointer(), pointer()
if sqlite.sqlite3_open_v2(database_name, ctypes.byref(database), 1, None) != 0:  # 1: read-only
    sys.exit("the database cannot be opened")
check(cotepe.cotepe_create(database, ctypes.byref(generator)))
check(cotepe.cotepe_set_layout(generator, 2))
check(cotepe.cotepe_set_identity(generator, b"BR0000000000000001", b"IMPRESSORA", b"ECF-IF"))
check(cotepe.cotepe_set_log(generator, on_log, None))
check(cotepe.cotepe_set_clock(generator, on_clock, None))
check(cotepe.cotepe_generate(generator, report, first_day, last_day, b"TDM"))
cotepe.cotepe_destroy(generator)
sqlite.sqlite3_close(database)
print("cotepe", cotepe.cotepe_version().decode())
