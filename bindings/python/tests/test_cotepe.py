"""The acceptance test of the bindings, in Python. In the environment: COTEPE_LIBRARY, the library; COTEPE_TEST_DATA, a folder
with loja.db, quebrado.db that lacks versao_sb, and esperado.txt, the program's report of loja.db in January 2024, in layout 2,
by a clock that stands at 08:30 of 29/02/2024."""
import gc
import os
import shutil
import sqlite3
import threading
from datetime import date, datetime
from pathlib import Path

import pytest

import cotepe
from cotepe import Result

DATA = Path(os.environ["COTEPE_TEST_DATA"])
FIRST, LAST = date(2024, 1, 1), date(2024, 1, 31)


def clock():
    return datetime(2024, 2, 29, 8, 30, 0)


@pytest.fixture
def database(tmp_path):
    return Path(shutil.copy(DATA / "loja.db", tmp_path / "loja.db"))


@pytest.fixture
def report(tmp_path):
    return tmp_path / "relatório.txt"


@pytest.fixture
def generator(database):
    with cotepe.Generator(database, layout=2) as made:
        yield made


def result_of(function, *arguments, **options):
    with pytest.raises(cotepe.CotepeError) as caught:
        function(*arguments, **options)
    return caught.value.result


def test_bytes_are_the_programs(generator, report):
    generator.generate(report, FIRST, LAST, clock=clock)
    assert report.read_bytes() == (DATA / "esperado.txt").read_bytes()
    generator.generate(report, "01012024", "31012024", "TDM", replace=True, clock=clock)
    assert report.read_bytes() == (DATA / "esperado.txt").read_bytes()


def test_settings_reach_the_library(database, report):
    with cotepe.Generator(database) as generator:
        generator.generate(report, FIRST, LAST, clock=clock)
    assert report.read_bytes() != (DATA / "esperado.txt").read_bytes()
    empty = date(2020, 1, 1)
    with cotepe.Generator(database) as generator:
        generator.generate(report, empty, empty, clock=clock, replace=True)
    assert b"\nE14" in report.read_bytes()
    with cotepe.Generator(database, cat52=True) as generator:
        generator.generate(report, empty, empty, clock=clock, replace=True)
    assert b"\nE14" not in report.read_bytes(), "CAT52 mode has no placeholder records"


def test_identity_stands_behind_the_database(database, report):
    with sqlite3.connect(database) as connection:
        connection.execute("UPDATE dados_ecf SET num_serie='', modelo='', tipo=''")
    with cotepe.Generator(database) as generator:
        generator.set_identity("SERIE", "MODELO", "TIPO")
        generator.generate(report, FIRST, LAST, "MF")
    assert report.read_bytes().startswith(b"E01SERIE               " + b" TIPO   ")


def test_databases_that_are_none(tmp_path):
    missing, text = tmp_path / "nao-ha.db", tmp_path / "texto.db"
    text.write_text("x" * 4096)
    assert result_of(cotepe.Generator, missing) == Result.CANNOT_READ
    with pytest.raises(cotepe.CotepeError, match="No such file"):
        cotepe.Generator(missing)
    assert result_of(cotepe.Generator, text) == Result.NOT_A_DATABASE
    assert not missing.exists()


def test_locked_database(generator, database, report):
    other = sqlite3.connect(database, isolation_level=None)
    other.execute("BEGIN EXCLUSIVE")
    assert result_of(cotepe.Generator, database, busy_timeout=0) == Result.LOCKED
    other.execute("COMMIT")
    generator.generate(report, FIRST, LAST, clock=clock)


@pytest.mark.parametrize("first, last, command", [
    (LAST, FIRST, "TDM"), ("2024-01-01", LAST, "TDM"), ("30022024", LAST, "TDM"), (FIRST, LAST, "tdm"), (FIRST, LAST, "")])
def test_arguments_that_are_none(generator, report, first, last, command):
    assert result_of(generator.generate, report, first, last, command) == Result.BAD_ARGUMENT
    assert not report.exists()


def test_report_that_is_there_or_cannot_be(generator, database, report, tmp_path):
    report.write_text("before")
    with pytest.raises(cotepe.CotepeError) as caught:
        generator.generate(report, FIRST, LAST)
    assert (caught.value.result, caught.value.reason) == (Result.CANNOT_OPEN, "File exists")
    assert report.read_text() == "before"
    before = database.read_bytes()
    assert result_of(generator.generate, database, FIRST, LAST, replace=True) == Result.CANNOT_OPEN
    assert database.read_bytes() == before
    assert result_of(generator.generate, tmp_path / "nao-ha" / "r.txt", FIRST, LAST) == Result.CANNOT_OPEN


def test_failed_query_is_logged_and_makes_no_report(tmp_path, report):
    logged = []
    with cotepe.Generator(DATA / "quebrado.db", layout=2) as generator:
        assert result_of(
            generator.generate, report, FIRST, LAST, on_log=lambda *told: logged.append(told)) == Result.INCOMPLETE
    assert ("Erro no select - TipoE07", "no such table: versao_sb") in logged
    assert not report.exists()


def test_registers_are_told_in_order(generator, report):
    told = []
    generator.generate(report, FIRST, LAST, "RZ", on_register=lambda *register: told.append(register))
    assert [register[0] for register in told] == ["E01", "E02", "E14", "E15", "E16"]
    lines = report.read_text("latin-1").splitlines()
    assert [register[1] for register in told] == [sum(line.startswith(r[0]) for line in lines) for r in told]
    assert all(register[2] is True for register in told)


def test_cancel_leaves_nothing(generator, report, tmp_path):
    codes = []

    def on_register(code, _lines, _complete):
        codes.append(code)
        if code == "E14":
            generator.cancel()

    with pytest.raises(cotepe.Cancelled):
        generator.generate(report, FIRST, LAST, on_register=on_register)
    assert codes[-1] == "E14"
    assert [entry.name for entry in tmp_path.iterdir()] == ["loja.db"]
    generator.generate(report, FIRST, LAST, clock=clock)
    assert report.read_bytes() == (DATA / "esperado.txt").read_bytes()


@pytest.mark.parametrize("callback", ["on_register", "clock"])
def test_exception_of_a_callback_comes_out(generator, report, callback):
    def fails(*_told):
        raise KeyError("of the host")

    with pytest.raises(KeyError, match="of the host"):
        generator.generate(report, FIRST, LAST, **{callback: fails})
    assert not report.exists()
    generator.generate(report, FIRST, LAST, clock=clock)


def test_second_thread_is_refused(generator, report, tmp_path):
    results = []

    def second():
        results.append(result_of(generator.generate, tmp_path / "outro.txt", FIRST, LAST))
        results.append(generator._library.cotepe_set_layout(generator._handle, 1))
        results.append(result_of(generator.close))

    def on_register(code, _lines, _complete):
        if code == "E01":
            thread = threading.Thread(target=second)
            thread.start()
            thread.join()

    generator.generate(report, FIRST, LAST, clock=clock, on_register=on_register)
    assert results == [Result.BUSY, Result.BUSY, Result.BUSY]
    assert report.read_bytes() == (DATA / "esperado.txt").read_bytes()


def test_closed_generator_and_one_that_is_collected(database, report):
    generator = cotepe.Generator(database)
    generator.close()
    generator.close()
    with pytest.raises(ValueError):
        generator.generate(report, FIRST, LAST)
    del generator
    gc.collect()
    assert cotepe.library_version().count(".") == 2
