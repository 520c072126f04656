// Type-E register files (Ato COTEPE/ICMS 17/04) from a fiscal printer's database, through the library cotepe: one file, to
// be compiled with the application. .NET Framework 4.5 or later, .NET, Mono; C# 5.
using System;
using System.Runtime.ExceptionServices;
using System.Runtime.InteropServices;
using System.Text;
using System.Threading;

namespace Cotepe {
  /// <summary>What a function of the library returns, as cotepe.h has it.</summary>
  public enum Result {
    Done = 0, Incomplete = 1, BadArgument = 2, CannotOpen = 3, CannotWrite = 4, NoIdentity = 5, NoMemory = 6, Busy = 7,
    BadTime = 8, CallbackFailed = 9, Cancelled = 10, CannotRead = 11, Locked = 12, NotADatabase = 13
  }

  /// <summary>A result other than Done.</summary>
  public class CotepeException : Exception {
    public CotepeException(Result result, string reason) : base(Text(result, reason)) {
      Result = result;
      Reason = reason;
    }

    public Result Result { get; private set; }

    /// <summary>The words of SQLite or of the system, or empty.</summary>
    public string Reason { get; private set; }

    private static string Text(Result result, string reason) {
      string text = Native.ToText(Native.cotepe_result_text((int)result));
      return reason.Length == 0 ? text : text + ": " + reason;
    }
  }

  /// <summary>A query that failed: the library's message, and SQLite's words.</summary>
  public delegate void LogHandler(string message, string reason);

  /// <summary>The end of a register such as "E14": how many lines it wrote, and whether each of its queries ended
  /// normally.</summary>
  public delegate void RegisterHandler(string code, long lines, bool complete);

  /// <summary>Generates reports from one database, which is only read, one report at a time. Handlers run on the thread of
  /// Generate; what they throw ends the run and comes out of Generate.</summary>
  public sealed class Generator : IDisposable {
    private readonly GeneratorHandle handle;
    // Kept alive for as long as the library may call them.
    private readonly Native.LogCallback log;
    private readonly Native.RegisterCallback register;
    private readonly Native.ClockCallback clock;
    private ExceptionDispatchInfo failure;
    private volatile bool cancelled;
    private int running;
    private int layout = 1;
    private bool cat52;

    /// <summary>Opens the database to read it; waits at most that many milliseconds for a lock.</summary>
    public Generator(string database, int busyTimeout = 5000) {
      int result = Native.cotepe_open(Native.Utf8(database), busyTimeout, out handle);
      if (result != (int)Result.Done)
        throw new CotepeException((Result)result, Native.ToText(Native.cotepe_reason(IntPtr.Zero)));
      log = OnLog;
      register = OnRegister;
      clock = OnClock;
      Check(Native.cotepe_set_log(handle, log, IntPtr.Zero));
      Check(Native.cotepe_set_register_callback(handle, register, IntPtr.Zero));
    }

    /// <summary>Called for each query that fails.</summary>
    public LogHandler Log { get; set; }

    /// <summary>Called at the end of each register.</summary>
    public RegisterHandler Register { get; set; }

    /// <summary>Where E11's time of generation comes from; null: the system's local time.</summary>
    public Func<DateTime> Clock { get; set; }

    /// <summary>1, the default; or 2, with its fields and register E22.</summary>
    public int Layout {
      get { return layout; }
      set {
        Check(Native.cotepe_set_layout(handle, value));
        layout = value;
      }
    }

    /// <summary>No placeholder records for registers without a row, no texts in E14.</summary>
    public bool Cat52 {
      get { return cat52; }
      set {
        Check(Native.cotepe_set_cat52(handle, value ? 1 : 0));
        cat52 = value;
      }
    }

    public static string LibraryVersion {
      get { return Native.ToText(Native.cotepe_version()); }
    }

    /// <summary>What is known about the printer apart from its database, which takes precedence.</summary>
    public void SetIdentity(string serial, string model, string type) {
      Check(Native.cotepe_set_identity(handle, Native.Utf8(serial), Native.Utf8(model), Native.Utf8(type)));
    }

    /// <summary>Ends the current run after the current register; to be called from a handler or from another thread.</summary>
    public void Cancel() {
      cancelled = true;
    }

    /// <summary>Writes the report of a period, both days included, whole or not at all. The command is "MF", "MFD", "TDM" or
    /// "RZ". Throws CotepeException, also when a query failed, with Result.Incomplete; there is no report then.</summary>
    public void Generate(string report, DateTime firstDay, DateTime lastDay, string command = "TDM", bool replace = false) {
      if (Interlocked.Exchange(ref running, 1) != 0) throw new CotepeException(Result.Busy, "");
      try {
        failure = null;
        cancelled = false;
        Check(Native.cotepe_set_clock(handle, Clock != null ? clock : null, IntPtr.Zero));
        int result = Native.cotepe_generate_whole(handle, Native.Utf8(report), Day(firstDay), Day(lastDay),
                                                  Native.Utf8(command), replace ? 1 : 0);
        string reason = Native.ToText(Native.cotepe_reason(handle));
        if (failure != null) failure.Throw();
        if (result != (int)Result.Done) throw new CotepeException((Result)result, reason);
      } finally {
        failure = null;
        Interlocked.Exchange(ref running, 0);
      }
    }

    /// <summary>Closes the database; not during a run.</summary>
    public void Dispose() {
      if (Thread.VolatileRead(ref running) != 0) throw new CotepeException(Result.Busy, "");
      handle.Dispose();
    }

    private static byte[] Day(DateTime day) {
      return Native.Utf8(day.ToString("ddMMyyyy", System.Globalization.CultureInfo.InvariantCulture));
    }

    private static void Check(int result) {
      if (result != (int)Result.Done) throw new CotepeException((Result)result, "");
    }

    // Nothing may leave a callback: what is thrown there is kept, and the run is cancelled.
    private int Guard(Action tell) {
      try {
        tell();
      } catch (Exception thrown) {
        failure = ExceptionDispatchInfo.Capture(thrown);
        return 1;
      }
      return cancelled ? 1 : 0;
    }

    private int OnLog(IntPtr user, IntPtr message) {
      return Guard(() => {
        if (Log != null) Log(Native.ToText(message), Native.ToText(Native.cotepe_reason(handle)));
      });
    }

    private int OnRegister(IntPtr user, IntPtr code, long lines, int complete) {
      return Guard(() => {
        if (Register != null) Register(Native.ToText(code), lines, complete != 0);
      });
    }

    private int OnClock(IntPtr user, ref Native.Time now) {
      var read = new Native.Time();
      int answer = Guard(() => {
        DateTime time = Clock();
        read.Year = time.Year;
        read.Month = time.Month;
        read.Day = time.Day;
        read.Hour = time.Hour;
        read.Minute = time.Minute;
        read.Second = time.Second;
      });
      now = read;
      return answer;
    }
  }

  internal sealed class GeneratorHandle : SafeHandle {
    private GeneratorHandle() : base(IntPtr.Zero, true) {}

    public override bool IsInvalid {
      get { return handle == IntPtr.Zero; }
    }

    protected override bool ReleaseHandle() {
      return Native.cotepe_destroy(handle) == (int)Result.Done;
    }
  }

  internal static class Native {
#if COTEPE_UNIX
    // What hosts for Linux only define: the library as it is installed without the files for developers.
    private const string Library = "libcotepe.so.0";
#else
    // cotepe.dll, libcotepe.so: Mono and .NET add what the system needs.
    private const string Library = "cotepe";
#endif

    [StructLayout(LayoutKind.Sequential)]
    internal struct Time {
      public int Year, Month, Day, Hour, Minute, Second;
    }

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int LogCallback(IntPtr user, IntPtr message);
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int ClockCallback(IntPtr user, ref Time now);
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int RegisterCallback(IntPtr user, IntPtr code, long lines, int complete);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int cotepe_open(byte[] database, int busyTimeout, out GeneratorHandle generator);
    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int cotepe_destroy(IntPtr generator);
    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int cotepe_set_layout(GeneratorHandle generator, int version);
    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int cotepe_set_cat52(GeneratorHandle generator, int on);
    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int cotepe_set_identity(GeneratorHandle generator, byte[] serial, byte[] model, byte[] type);
    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int cotepe_set_log(GeneratorHandle generator, LogCallback callback, IntPtr user);
    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int cotepe_set_register_callback(GeneratorHandle generator, RegisterCallback callback,
                                                            IntPtr user);
    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int cotepe_set_clock(GeneratorHandle generator, ClockCallback callback, IntPtr user);
    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern int cotepe_generate_whole(GeneratorHandle generator, byte[] report, byte[] firstDay, byte[] lastDay,
                                                     byte[] command, int replace);
    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern IntPtr cotepe_reason(GeneratorHandle generator);
    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern IntPtr cotepe_reason(IntPtr none);
    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern IntPtr cotepe_result_text(int result);
    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    internal static extern IntPtr cotepe_version();

    // Terminated; null stays null.
    internal static byte[] Utf8(string text) {
      return text == null ? null : Encoding.UTF8.GetBytes(text + "\0");
    }

    internal static string ToText(IntPtr utf8) {
      int length = 0;
      while (Marshal.ReadByte(utf8, length) != 0) ++length;
      var bytes = new byte[length];
      Marshal.Copy(utf8, bytes, 0, length);
      return Encoding.UTF8.GetString(bytes);
    }
  }
}
