// A host in C#: Example DATABASE REPORT FIRST_DAY LAST_DAY, days as DDMMYYYY.
using System;
using System.Globalization;
using Cotepe;

static class Example {
  static DateTime Day(string text) {
    return DateTime.ParseExact(text, "ddMMyyyy", CultureInfo.InvariantCulture);
  }

  static void WriteReport(string database, string report, DateTime firstDay, DateTime lastDay) {
    using (var generator = new Generator(database)) {
      generator.Layout = 2;
      generator.SetIdentity("BR0000000000000001", "IMPRESSORA", "ECF-IF");
      generator.Log = (message, reason) => Console.Error.WriteLine("host: " + message + ": " + reason);
      generator.Clock = () => new DateTime(2024, 2, 29, 8, 30, 0);  // this one stands still
      generator.Generate(report, firstDay, lastDay, "TDM", replace: true);
    }
  }

  static int Main(string[] arguments) {
    try {
      WriteReport(arguments[0], arguments[1], Day(arguments[2]), Day(arguments[3]));
    } catch (CotepeException error) {
      Console.Error.WriteLine("cotepe: " + error.Message);
      return (int)error.Result;
    }
    Console.WriteLine("cotepe " + Generator.LibraryVersion);
    return 0;
  }
}
