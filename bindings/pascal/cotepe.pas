{ Type-E register files (Ato COTEPE/ICMS 17/04) from a fiscal printer's database, through the library cotepe.
  For Delphi and Free Pascal. Strings are those of the application: UTF-16, or UTF-8 bytes if they are AnsiString. }
unit cotepe;

{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}

interface

uses
  SysUtils, SyncObjs;

const
  { What a function of the library returns, as cotepe.h has it. }
  COTEPE_DONE = 0;
  COTEPE_INCOMPLETE = 1;
  COTEPE_BAD_ARGUMENT = 2;
  COTEPE_CANNOT_OPEN = 3;
  COTEPE_CANNOT_WRITE = 4;
  COTEPE_NO_IDENTITY = 5;
  COTEPE_NO_MEMORY = 6;
  COTEPE_BUSY = 7;
  COTEPE_BAD_TIME = 8;
  COTEPE_CALLBACK_FAILED = 9;
  COTEPE_CANCELLED = 10;
  COTEPE_CANNOT_READ = 11;
  COTEPE_LOCKED = 12;
  COTEPE_NOT_A_DATABASE = 13;

type
  { A result other than COTEPE_DONE. Reason: the words of SQLite or of the system, or nothing. }
  ECotepe = class(Exception)
  private
    FCode: Integer;
    FReason: string;
  public
    constructor Create(ACode: Integer; const AReason: string);
    property Code: Integer read FCode;
    property Reason: string read FReason;
  end;

  { A query that failed: the library's message, and SQLite's words. }
  TCotepeLogEvent = procedure(Sender: TObject; const Text, Reason: string) of object;
  { The end of a register such as 'E14': how many lines it wrote, and whether each of its queries ended normally. }
  TCotepeRegisterEvent = procedure(Sender: TObject; const Code: string; Lines: Int64; Complete: Boolean) of object;
  { The time of generation, for E11. }
  TCotepeClockEvent = procedure(Sender: TObject; var Time: TDateTime) of object;

  { Generates reports from one database, which is only read, one report at a time. Events are called on the thread of Generate;
    an exception that leaves one ends the run and comes out of Generate. }
  TCotepeGenerator = class(TObject)
  private
    FHandle: Pointer;
    FGuard: TCriticalSection;
    FRunning: Boolean;
    FCancelled: Boolean;
    FFailure: TObject;
    FOnLog: TCotepeLogEvent;
    FOnRegister: TCotepeRegisterEvent;
    FOnClock: TCotepeClockEvent;
    procedure Check(ACode: Integer);
    function Run(const Report, FirstDay, LastDay, Command: string; Replace: Boolean): Integer;
    function Answer: Integer;
    procedure KeepFailure;
    procedure SetLayout(Value: Integer);
    procedure SetCat52(Value: Boolean);
  public
    { Opens the database to read it; waits at most that many milliseconds for a lock. }
    constructor Create(const Database: string; BusyTimeout: Integer = 5000);
    { Closes it; not during a run. }
    destructor Destroy; override;
    { What is known about the printer apart from its database, which takes precedence. }
    procedure SetIdentity(const Serial, Model, Kind: string);
    { Writes the report of a period, both days included, whole or not at all. The command is 'MF', 'MFD', 'TDM' or 'RZ'.
      Raises ECotepe, also when a query failed, with COTEPE_INCOMPLETE; there is no report then. }
    procedure Generate(const Report: string; FirstDay, LastDay: TDateTime; const Command: string = 'TDM';
      Replace: Boolean = False);
    { Ends the current run after the current register; to be called from an event or from another thread. }
    procedure Cancel;
    { 1, the default; or 2, with its fields and register E22. }
    property Layout: Integer write SetLayout;
    { No placeholder records for registers without a row, no texts in E14. }
    property Cat52: Boolean write SetCat52;
    property OnLog: TCotepeLogEvent read FOnLog write FOnLog;
    property OnRegister: TCotepeRegisterEvent read FOnRegister write FOnRegister;
    { Without it E11 uses the system's local time. }
    property OnClock: TCotepeClockEvent read FOnClock write FOnClock;
  end;

function CotepeLibraryVersion: string;

implementation

uses
  Math;

const
{$IFDEF MSWINDOWS}
  CotepeLibrary = 'cotepe.dll';
{$ELSE}{$IFDEF FPC}
  CotepeLibrary = 'cotepe';
{$ELSE}
  CotepeLibrary = 'libcotepe.so.0';
{$ENDIF}{$ENDIF}

type
{$IFDEF UNICODE}
  TText = UTF8String;
{$ELSE}
  TText = AnsiString;
{$ENDIF}

  TTimeRecord = record
    Year, Month, Day, Hour, Minute, Second: Integer;
  end;

  TLogCallback = function(User: Pointer; Text: PAnsiChar): Integer; cdecl;
  TClockCallback = function(User: Pointer; var Now: TTimeRecord): Integer; cdecl;
  TRegisterCallback = function(User: Pointer; Code: PAnsiChar; Lines: Int64; Complete: Integer): Integer; cdecl;

function cotepe_open(Database: PAnsiChar; BusyTimeout: Integer; out Generator: Pointer): Integer; cdecl;
  external CotepeLibrary;
function cotepe_destroy(Generator: Pointer): Integer; cdecl; external CotepeLibrary;
function cotepe_set_layout(Generator: Pointer; Version: Integer): Integer; cdecl; external CotepeLibrary;
function cotepe_set_cat52(Generator: Pointer; Value: Integer): Integer; cdecl; external CotepeLibrary;
function cotepe_set_identity(Generator: Pointer; Serial, Model, Kind: PAnsiChar): Integer; cdecl; external CotepeLibrary;
function cotepe_set_log(Generator: Pointer; Callback: TLogCallback; User: Pointer): Integer; cdecl; external CotepeLibrary;
function cotepe_set_register_callback(Generator: Pointer; Callback: TRegisterCallback; User: Pointer): Integer; cdecl;
  external CotepeLibrary;
function cotepe_set_clock(Generator: Pointer; Callback: TClockCallback; User: Pointer): Integer; cdecl;
  external CotepeLibrary;
function cotepe_generate_whole(Generator: Pointer; Report, FirstDay, LastDay, Command: PAnsiChar;
  Replace: Integer): Integer; cdecl; external CotepeLibrary;
function cotepe_reason(Generator: Pointer): PAnsiChar; cdecl; external CotepeLibrary;
function cotepe_result_text(Code: Integer): PAnsiChar; cdecl; external CotepeLibrary;
function cotepe_version: PAnsiChar; cdecl; external CotepeLibrary;

function ToText(const Value: string): TText;
begin
{$IFDEF UNICODE}
  Result := UTF8Encode(Value);
{$ELSE}
  Result := Value;
{$ENDIF}
end;

function FromText(Value: PAnsiChar): string;
begin
{$IFDEF UNICODE}
  Result := UTF8ToString(Value);
{$ELSE}
  Result := Value;
{$ENDIF}
end;

function CotepeLibraryVersion: string;
begin
  Result := FromText(cotepe_version);
end;

{ Nothing may leave these three: what is raised there is kept, and the run is cancelled. }

function LogCallback(User: Pointer; Text: PAnsiChar): Integer; cdecl;
var
  Generator: TCotepeGenerator;
begin
  Generator := TCotepeGenerator(User);
  try
    if Assigned(Generator.FOnLog) then
      Generator.FOnLog(Generator, FromText(Text), FromText(cotepe_reason(Generator.FHandle)));
  except
    Generator.KeepFailure;
  end;
  Result := Generator.Answer;
end;

function RegisterCallback(User: Pointer; Code: PAnsiChar; Lines: Int64; Complete: Integer): Integer; cdecl;
var
  Generator: TCotepeGenerator;
begin
  Generator := TCotepeGenerator(User);
  try
    if Assigned(Generator.FOnRegister) then
      Generator.FOnRegister(Generator, FromText(Code), Lines, Complete <> 0);
  except
    Generator.KeepFailure;
  end;
  Result := Generator.Answer;
end;

function ClockCallback(User: Pointer; var Now: TTimeRecord): Integer; cdecl;
var
  Generator: TCotepeGenerator;
  Time: TDateTime;
  Year, Month, Day, Hour, Minute, Second, Millisecond: Word;
begin
  Generator := TCotepeGenerator(User);
  try
    Time := SysUtils.Now;
    Generator.FOnClock(Generator, Time);
    DecodeDate(Time, Year, Month, Day);
    DecodeTime(Time, Hour, Minute, Second, Millisecond);
    Now.Year := Year;
    Now.Month := Month;
    Now.Day := Day;
    Now.Hour := Hour;
    Now.Minute := Minute;
    Now.Second := Second;
  except
    Generator.KeepFailure;
  end;
  Result := Generator.Answer;
end;

constructor ECotepe.Create(ACode: Integer; const AReason: string);
var
  Text: string;
begin
  Text := FromText(cotepe_result_text(ACode));
  if AReason <> '' then
    Text := Text + ': ' + AReason;
  inherited Create(Text);
  FCode := ACode;
  FReason := AReason;
end;

constructor TCotepeGenerator.Create(const Database: string; BusyTimeout: Integer);
var
  Code: Integer;
begin
  inherited Create;
  FGuard := TCriticalSection.Create;
  Code := cotepe_open(PAnsiChar(ToText(Database)), BusyTimeout, FHandle);
  if Code <> COTEPE_DONE then
    raise ECotepe.Create(Code, FromText(cotepe_reason(nil)));
  Check(cotepe_set_log(FHandle, LogCallback, Self));
  Check(cotepe_set_register_callback(FHandle, RegisterCallback, Self));
end;

destructor TCotepeGenerator.Destroy;
begin
  if FHandle <> nil then
    cotepe_destroy(FHandle);
  FGuard.Free;
  inherited Destroy;
end;

procedure TCotepeGenerator.Check(ACode: Integer);
begin
  if ACode <> COTEPE_DONE then
    raise ECotepe.Create(ACode, '');
end;

procedure TCotepeGenerator.SetLayout(Value: Integer);
begin
  Check(cotepe_set_layout(FHandle, Value));
end;

procedure TCotepeGenerator.SetCat52(Value: Boolean);
begin
  Check(cotepe_set_cat52(FHandle, Ord(Value)));
end;

procedure TCotepeGenerator.SetIdentity(const Serial, Model, Kind: string);
begin
  Check(cotepe_set_identity(FHandle, PAnsiChar(ToText(Serial)), PAnsiChar(ToText(Model)), PAnsiChar(ToText(Kind))));
end;

procedure TCotepeGenerator.Cancel;
begin
  FCancelled := True;
end;

procedure TCotepeGenerator.KeepFailure;
begin
  FFailure := TObject(AcquireExceptionObject);
end;

function TCotepeGenerator.Answer: Integer;
begin
  Result := Ord(FCancelled or (FFailure <> nil));
end;

{ The library expects the exceptions of the processor's arithmetic to be masked, as C has them. }
function TCotepeGenerator.Run(const Report, FirstDay, LastDay, Command: string; Replace: Boolean): Integer;
var
  Mask: TFPUExceptionMask;
begin
  Mask := SetExceptionMask([exInvalidOp, exDenormalized, exZeroDivide, exOverflow, exUnderflow, exPrecision]);
  try
    Result := cotepe_generate_whole(FHandle, PAnsiChar(ToText(Report)), PAnsiChar(ToText(FirstDay)),
      PAnsiChar(ToText(LastDay)), PAnsiChar(ToText(Command)), Ord(Replace));
  finally
    SetExceptionMask(Mask);
  end;
end;

procedure TCotepeGenerator.Generate(const Report: string; FirstDay, LastDay: TDateTime; const Command: string;
  Replace: Boolean);
var
  Busy: Boolean;
  Code: Integer;
  Failure: TObject;
begin
  FGuard.Enter;
  Busy := FRunning;
  FRunning := True;
  FGuard.Leave;
  if Busy then
    raise ECotepe.Create(COTEPE_BUSY, '');
  try
    FCancelled := False;
    FFailure := nil;
    if Assigned(FOnClock) then
      Check(cotepe_set_clock(FHandle, ClockCallback, Self))
    else
      Check(cotepe_set_clock(FHandle, nil, nil));
    Code := Run(Report, FormatDateTime('ddmmyyyy', FirstDay), FormatDateTime('ddmmyyyy', LastDay), Command, Replace);
    Failure := FFailure;
    FFailure := nil;
    if Failure <> nil then
      raise Failure;
    if Code <> COTEPE_DONE then
      raise ECotepe.Create(Code, FromText(cotepe_reason(FHandle)));
  finally
    FRunning := False;
  end;
end;

end.
