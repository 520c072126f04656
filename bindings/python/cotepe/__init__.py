"""Type-E register files (Ato COTEPE/ICMS 17/04) from a fiscal printer's database, through libcotepe.

    with cotepe.Generator("loja.db", layout=2) as generator:
        generator.generate("loja.txt", date(2024, 1, 1), date(2024, 1, 31))

The library is found in the system's usual way, or at the path in the environment variable COTEPE_LIBRARY.
"""

from __future__ import annotations

import ctypes
import datetime
import enum
import os
import sys
import threading
from typing import Any, Callable, Optional, Union

__all__ = ["Cancelled", "CotepeError", "Generator", "Result", "library_version"]

Path = Union[str, "os.PathLike[str]"]
Day = Union[datetime.date, str]


class Result(enum.IntEnum):
    """What a function of the library returns, as cotepe.h has it."""

    DONE = 0
    INCOMPLETE = 1
    BAD_ARGUMENT = 2
    CANNOT_OPEN = 3
    CANNOT_WRITE = 4
    NO_IDENTITY = 5
    NO_MEMORY = 6
    BUSY = 7
    BAD_TIME = 8
    CALLBACK_FAILED = 9
    CANCELLED = 10
    CANNOT_READ = 11
    LOCKED = 12
    NOT_A_DATABASE = 13


class CotepeError(Exception):
    """A result other than DONE. `reason`: the words of SQLite or of the system, or empty."""

    def __init__(self, result: Result, text: str, reason: str = "") -> None:
        super().__init__(f"{text}: {reason}" if reason else text)
        self.result = result
        self.reason = reason


class Cancelled(CotepeError):
    """The run ended because `Generator.cancel` asked for it."""


class _Time(ctypes.Structure):
    _fields_ = [(name, ctypes.c_int) for name in ("year", "month", "day", "hour", "minute", "second")]


_Log = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_char_p)
_Clock = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.POINTER(_Time))
_Register = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int64, ctypes.c_int)


def _load() -> ctypes.CDLL:
    name = "cotepe.dll" if sys.platform == "win32" else "libcotepe.so.0"
    library = ctypes.CDLL(os.environ.get("COTEPE_LIBRARY") or name)
    text, generator, number = ctypes.c_char_p, ctypes.c_void_p, ctypes.c_int
    for function, arguments in {
        "cotepe_open": (text, number, ctypes.POINTER(generator)),
        "cotepe_destroy": (generator,),
        "cotepe_set_layout": (generator, number),
        "cotepe_set_cat52": (generator, number),
        "cotepe_set_identity": (generator, text, text, text),
        "cotepe_set_log": (generator, _Log, generator),
        "cotepe_set_register_callback": (generator, _Register, generator),
        "cotepe_set_clock": (generator, _Clock, generator),
        "cotepe_generate_whole": (generator, text, text, text, text, number),
    }.items():
        getattr(library, function).argtypes = arguments
        getattr(library, function).restype = number
    library.cotepe_reason.argtypes, library.cotepe_reason.restype = [generator], text
    library.cotepe_result_text.argtypes, library.cotepe_result_text.restype = [number], text
    library.cotepe_version.argtypes, library.cotepe_version.restype = [], text
    return library


_library: Optional[ctypes.CDLL] = None


def _loaded() -> ctypes.CDLL:
    global _library
    if _library is None:
        _library = _load()
    return _library


def library_version() -> str:
    """The version of the library that is loaded, such as "0.1.0"."""
    return str(_loaded().cotepe_version().decode())


def _error(result: int, reason: str = "") -> CotepeError:
    text = _loaded().cotepe_result_text(result).decode()
    kind = Cancelled if result == Result.CANCELLED else CotepeError
    return kind(Result(result), text, reason)


def _day(day: Day) -> bytes:
    if isinstance(day, str):
        return day.encode()
    return f"{day.day:02}{day.month:02}{day.year:04}".encode()


class Generator:
    """Generates reports from one database, which is only read, one report at a time. To be closed, or used as a
    context manager. `layout`: 1, or 2 with its fields and register E22. `busy_timeout`: seconds to wait for a lock."""

    def __init__(self, database: Path, *, layout: int = 1, cat52: bool = False, busy_timeout: float = 5.0) -> None:
        self._handle = ctypes.c_void_p()
        self._library = _loaded()
        self._running = threading.Lock()
        self._cancelled = False
        self._failure: Optional[BaseException] = None
        milliseconds = round(busy_timeout * 1000)
        result = self._library.cotepe_open(os.fsencode(database), milliseconds, ctypes.byref(self._handle))
        if result != Result.DONE:
            raise _error(result, self._library.cotepe_reason(None).decode(errors="replace"))
        self._check(self._library.cotepe_set_layout(self._handle, layout))
        self._check(self._library.cotepe_set_cat52(self._handle, int(cat52)))

    def __enter__(self) -> Generator:
        return self

    def __exit__(self, *_: Any) -> None:
        self.close()

    def __del__(self) -> None:
        if getattr(self, "_handle", None):
            self.close()

    def close(self) -> None:
        """Closes the database; once is enough, more often does no harm."""
        if self._handle:
            self._check(self._library.cotepe_destroy(self._handle))
            self._handle = ctypes.c_void_p()

    def set_identity(self, serial: str = "", model: str = "", type: str = "") -> None:
        """What is known about the printer apart from its database, which takes precedence."""
        self._check(self._library.cotepe_set_identity(self._open(), serial.encode(), model.encode(), type.encode()))

    def cancel(self) -> None:
        """Ends the current run after the current register; to be called from a callback or from another thread."""
        self._cancelled = True

    def generate(
        self,
        report: Path,
        first_day: Day,
        last_day: Day,
        command: str = "TDM",
        *,
        replace: bool = False,
        clock: Optional[Callable[[], datetime.datetime]] = None,
        on_log: Optional[Callable[[str, str], Any]] = None,
        on_register: Optional[Callable[[str, int, bool], Any]] = None,
    ) -> None:
        """Writes the report of a period, both days included (dates, or texts DDMMYYYY), whole or not at all. The command
        is "MF", "MFD", "TDM" or "RZ".

        `on_log(message, reason)` is called for each query that fails, `on_register(code, lines, complete)` at the end
        of each register. What a callback raises ends the run and comes out here. Raises CotepeError, also when a query
        failed, with the result INCOMPLETE; there is no report then."""
        if not self._running.acquire(blocking=False):
            raise _error(Result.BUSY)
        try:
            self._cancelled, self._failure = False, None
            handle, library = self._open(), self._library
            log = _Log(lambda _, message: self._guard(self._tell_log, on_log, message))
            register = _Register(lambda _, *told: self._guard(self._tell_register, on_register, *told))
            tick = _Clock(lambda _, now: self._guard(self._tell_time, clock, now)) if clock else _Clock(0)
            self._check(library.cotepe_set_log(handle, log, None))
            self._check(library.cotepe_set_register_callback(handle, register, None))
            self._check(library.cotepe_set_clock(handle, tick, None))
            try:
                result = library.cotepe_generate_whole(
                    handle, os.fsencode(report), _day(first_day), _day(last_day), command.encode(), int(replace))
                reason = library.cotepe_reason(handle).decode(errors="replace")
            finally:  # the callbacks end with this function
                library.cotepe_set_log(handle, _Log(0), None)
                library.cotepe_set_register_callback(handle, _Register(0), None)
                library.cotepe_set_clock(handle, _Clock(0), None)
            if self._failure is not None:
                raise self._failure
            if result != Result.DONE:
                raise _error(result, reason)
        finally:
            self._failure = None
            self._running.release()

    def _open(self) -> ctypes.c_void_p:
        if not self._handle:
            raise ValueError("the generator is closed")
        return self._handle

    def _check(self, result: int) -> None:
        if result != Result.DONE:
            raise _error(result)

    # Nothing may leave a callback: what is raised there is kept, and the run is cancelled.
    def _guard(self, tell: Callable[..., None], *told: Any) -> int:
        try:
            tell(*told)
        except BaseException as failure:  # noqa: BLE001
            self._failure = failure
            return 1
        return int(self._cancelled)

    def _tell_log(self, on_log: Optional[Callable[[str, str], Any]], message: bytes) -> None:
        reason = self._library.cotepe_reason(self._handle).decode(errors="replace")
        if on_log:
            on_log(message.decode(errors="replace"), reason)

    @staticmethod
    def _tell_register(
        on_register: Optional[Callable[[str, int, bool], Any]], code: bytes, lines: int, complete: int) -> None:
        if on_register:
            on_register(code.decode(), lines, bool(complete))

    @staticmethod
    def _tell_time(clock: Callable[[], datetime.datetime], now: Any) -> None:
        time = clock()
        now[0] = _Time(time.year, time.month, time.day, time.hour, time.minute, time.second)
