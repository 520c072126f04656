// The acceptance test of the bindings, in C#: Test DATA FOLDER. DATA holds loja.db, quebrado.db that lacks versao_sb, and
// esperado.txt, the program's report of loja.db in January 2024, in layout 2, by a clock that stands at 08:30 of 29/02/2024.
// FOLDER is empty.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Text;
using System.Threading;
using Cotepe;

static class Test {
  static readonly DateTime First = new DateTime(2024, 1, 1), Last = new DateTime(2024, 1, 31);
  static string data, folder, database, report;
  static int failures;

  static void Check(bool holds, string what) {
    if (holds) return;
    Console.Error.WriteLine("failed: " + what);
    ++failures;
  }

  static Result ResultOf(Action action) {
    try {
      action();
      return Result.Done;
    } catch (CotepeException error) {
      return error.Result;
    }
  }

  static void Expect(Result expected, Action action, string what) {
    Result found = ResultOf(action);
    Check(found == expected, what + ": " + found + " instead of " + expected);
  }

  static Generator Open() {
    return new Generator(database) { Layout = 2, Clock = () => new DateTime(2024, 2, 29, 8, 30, 0) };
  }

  static bool IsExpected() {
    return File.ReadAllBytes(report).SequenceEqual(File.ReadAllBytes(Path.Combine(data, "esperado.txt")));
  }

  static void BytesAreThePrograms() {
    using (Generator generator = Open()) {
      generator.Generate(report, First, Last);
      Check(IsExpected(), "the bytes");
      generator.Generate(report, First, Last, "TDM", replace: true);
      Check(IsExpected(), "the bytes again");
      generator.Layout = 1;
      generator.Generate(report, First, Last, replace: true);
      Check(!IsExpected(), "the layout reaches the library");
      generator.SetIdentity("SERIE", null, "TIPO");
      generator.Cat52 = true;
    }
  }

  static void ErrorPaths() {
    string text = Path.Combine(folder, "texto.db");
    File.WriteAllText(text, new string('x', 4096));
    Expect(Result.CannotRead, () => new Generator(Path.Combine(folder, "nao-ha.db")), "a missing database");
    try {
      new Generator(Path.Combine(folder, "nao-ha.db"));
    } catch (CotepeException error) {
      Check(error.Reason == "No such file or directory", "the reason of a missing database: " + error.Message);
    }
    Expect(Result.NotADatabase, () => new Generator(text), "a text");
    Expect(Result.BadArgument, () => new Generator(""), "no name");
    using (Generator generator = Open()) {
      Expect(Result.BadArgument, () => generator.Generate(report, Last, First), "reversed days");
      Expect(Result.BadArgument, () => generator.Generate(report, First, Last, "tdm"), "no command");
      Expect(Result.BadArgument, () => generator.Generate(null, First, Last), "no report");
      Check(!File.Exists(report), "a report was made");
      File.WriteAllText(report, "before");
      try {
        generator.Generate(report, First, Last);
        Check(false, "a report that is there");
      } catch (CotepeException error) {
        Check(error.Result == Result.CannotOpen && error.Reason == "File exists", "the reason: " + error.Message);
      }
      byte[] before = File.ReadAllBytes(database);
      Expect(Result.CannotOpen, () => generator.Generate(database, First, Last, "TDM", true), "the database as report");
      Check(File.ReadAllBytes(database).SequenceEqual(before), "the database was touched");
      Check(File.ReadAllText(report) == "before", "the old report was touched");
    }
  }

  static void FailedQueryIsLogged() {
    var logged = new List<string>();
    using (var generator = new Generator(Path.Combine(data, "quebrado.db"))) {
      generator.Log = (message, reason) => logged.Add(message + "/" + reason);
      Expect(Result.Incomplete, () => generator.Generate(report, First, Last), "a failed query");
    }
    Check(logged.Contains("Erro no select - TipoE07/no such table: versao_sb"), "the log: " + string.Join("; ", logged));
    Check(!File.Exists(report), "a report that is not whole");
  }

  static void CallbacksAndCancel() {
    var codes = new List<string>();
    long lines = 0;
    using (Generator generator = Open()) {
      generator.Register = (code, written, complete) => {
        codes.Add(code);
        lines += written;
        Check(complete, code);
        GC.Collect();  // the delegates must outlive it
        GC.WaitForPendingFinalizers();
      };
      generator.Generate(report, First, Last, "RZ");
      Check(string.Join(" ", codes) == "E01 E02 E14 E15 E16", "the registers: " + string.Join(" ", codes));
      Check(lines == File.ReadAllLines(report).Length, "their lines");
      File.Delete(report);

      generator.Register = (code, written, complete) => {
        if (code == "E14") generator.Cancel();
      };
      Expect(Result.Cancelled, () => generator.Generate(report, First, Last), "cancel");
      generator.Register = (code, written, complete) => { throw new InvalidOperationException("of the host"); };
      try {
        generator.Generate(report, First, Last);
        Check(false, "an exception of a handler");
      } catch (InvalidOperationException error) {
        Check(error.Message == "of the host", error.Message);
      }
      Check(!File.Exists(report), "a report of a run that ended early");
      generator.Register = null;
      generator.Generate(report, First, Last);
      Check(IsExpected(), "the run after those");
    }
  }

  static void SecondThreadIsRefused() {
    var results = new List<Result>();
    using (Generator generator = Open()) {
      generator.Register = (code, written, complete) => {
        if (code != "E01") return;
        var second = new Thread(() => {
          results.Add(ResultOf(() => generator.Generate(Path.Combine(folder, "outro.txt"), First, Last)));
          results.Add(ResultOf(() => generator.Layout = 1));
          results.Add(ResultOf(() => generator.Dispose()));
        });
        second.Start();
        second.Join();
      };
      generator.Generate(report, First, Last);
    }
    Check(string.Join(" ", results) == "Busy Busy Busy", "a second thread: " + string.Join(" ", results));
    Check(IsExpected(), "the run of the first");
  }

  static void GeneratorThatNobodyDisposed() {
    for (int i = 0; i < 50; ++i) new Generator(database);
    GC.Collect();
    GC.WaitForPendingFinalizers();
  }

  static int Main(string[] arguments) {
    data = arguments[0];
    folder = arguments[1];
    database = Path.Combine(folder, "loja.db");
    report = Path.Combine(folder, "relatório.txt");
    File.Copy(Path.Combine(data, "loja.db"), database);
    foreach (Action test in new Action[] { BytesAreThePrograms, ErrorPaths, FailedQueryIsLogged, CallbacksAndCancel,
                                           SecondThreadIsRefused, GeneratorThatNobodyDisposed }) {
      File.Delete(report);
      test();
    }
    Console.WriteLine(failures == 0 ? "C#: all as expected" : failures + " failures");
    return failures == 0 ? 0 : 1;
  }
}
