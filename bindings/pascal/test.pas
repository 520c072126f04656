{ The acceptance test of the bindings, in Pascal: test DATA FOLDER. DATA holds loja.db, quebrado.db that lacks versao_sb, and
  esperado.txt, the program's report of loja.db in January 2024, in layout 2, by a clock that stands at 08:30 of 29/02/2024;
  extremo.db, whose quantities no number holds, and the program's extremo.txt. FOLDER has a loja.db of its own. }
program test;

{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}

uses
  {$IFDEF UNIX}cthreads,{$ENDIF}
  SysUtils, Classes, cotepe;

type
  EOfTheHost = class(Exception);

  { Events that write down what they are told, and do what the test asks for. }
  THost = class(TObject)
    Generator: TCotepeGenerator;
    Logged, Codes, Second: string;
    Lines: Int64;
    CancelAt, RaiseAt, ThreadAt: string;
    procedure Log(Sender: TObject; const Text, Reason: string);
    procedure Clock(Sender: TObject; var Time: TDateTime);
    procedure Ended(Sender: TObject; const Code: string; Written: Int64; Complete: Boolean);
  end;

  TSecond = class(TThread)
    Host: THost;
    procedure Execute; override;
  end;

var
  Data, Folder, Database, Report: string;
  First, Last: TDateTime;
  Failures: Integer = 0;

procedure Check(Holds: Boolean; const What: string);
begin
  if Holds then
    Exit;
  WriteLn(ErrOutput, 'failed: ', What);
  Inc(Failures);
end;

function Contents(const Name: string): AnsiString;
var
  Stream: TFileStream;
begin
  Stream := TFileStream.Create(Name, fmOpenRead or fmShareDenyNone);
  try
    SetLength(Result, Stream.Size);
    if Stream.Size > 0 then
      Stream.ReadBuffer(Result[1], Stream.Size);
  finally
    Stream.Free;
  end;
end;

procedure Fill(const Name: string; const Text: AnsiString);
var
  Stream: TFileStream;
begin
  Stream := TFileStream.Create(Name, fmCreate);
  try
    Stream.WriteBuffer(Text[1], Length(Text));
  finally
    Stream.Free;
  end;
end;

function OpenGenerator(Host: THost; const Name: string): TCotepeGenerator;
begin
  Result := TCotepeGenerator.Create(Name);
  Result.Layout := 2;
  Result.OnLog := Host.Log;
  Result.OnClock := Host.Clock;
  Result.OnRegister := Host.Ended;
  Host.Generator := Result;
end;

{ The code of what Generate raises. }
function CodeOf(Generator: TCotepeGenerator; const Name: string; FirstDay, LastDay: TDateTime;
  const Command: string; Replace: Boolean): Integer;
begin
  Result := COTEPE_DONE;
  try
    Generator.Generate(Name, FirstDay, LastDay, Command, Replace);
  except
    on Error: ECotepe do
      Result := Error.Code;
  end;
end;

function CodeOfOpening(const Name: string; out Reason: string): Integer;
begin
  Result := COTEPE_DONE;
  Reason := '';
  try
    TCotepeGenerator.Create(Name).Free;
  except
    on Error: ECotepe do
    begin
      Result := Error.Code;
      Reason := Error.Reason;
    end;
  end;
end;

procedure Expect(Expected, Found: Integer; const What: string);
begin
  Check(Expected = Found, What + ': ' + IntToStr(Found) + ' instead of ' + IntToStr(Expected));
end;

function IsExpected: Boolean;
begin
  Result := Contents(Report) = Contents(Data + '/esperado.txt');
end;

procedure THost.Log(Sender: TObject; const Text, Reason: string);
begin
  Logged := Logged + Text + '/' + Reason + ';';
end;

procedure THost.Clock(Sender: TObject; var Time: TDateTime);
begin
  Time := EncodeDate(2024, 2, 29) + EncodeTime(8, 30, 0, 0);
end;

procedure THost.Ended(Sender: TObject; const Code: string; Written: Int64; Complete: Boolean);
var
  Thread: TSecond;
begin
  Codes := Codes + Code + ' ';
  Lines := Lines + Written;
  if Code = CancelAt then
    Generator.Cancel;
  if Code = RaiseAt then
    raise EOfTheHost.Create('of the host');
  if Code <> ThreadAt then
    Exit;
  Thread := TSecond.Create(True);
  Thread.Host := Self;
  Thread.Start;
  Thread.WaitFor;
  Thread.Free;
end;

procedure TSecond.Execute;
begin
  Host.Second := IntToStr(CodeOf(Host.Generator, Folder + '/outro.txt', First, Last, 'TDM', False));
  try
    Host.Generator.Layout := 1;
  except
    on Error: ECotepe do
      Host.Second := Host.Second + ' ' + IntToStr(Error.Code);
  end;
end;

procedure BytesAreThePrograms(Host: THost);
begin
  Host.Generator.Generate(Report, First, Last);
  Check(IsExpected, 'the bytes');
  Host.Generator.Generate(Report, First, Last, 'TDM', True);
  Check(IsExpected, 'the bytes again');
  Host.Generator.Layout := 1;
  Host.Generator.Generate(Report, First, Last, 'TDM', True);
  Check(not IsExpected, 'the layout reaches the library');
  Host.Generator.SetIdentity('SERIE', '', 'TIPO');
  Host.Generator.Cat52 := True;
  Host.Generator.Cat52 := False;
  Host.Generator.Layout := 2;
  Host.Generator.Generate(Report, First, Last, 'TDM', True);
  Check(IsExpected, 'the settings as before');
end;

procedure ErrorPaths(Host: THost);
var
  Before: AnsiString;
  Reason: string;
begin
  Fill(Folder + '/texto.db', AnsiString(StringOfChar('x', 4096)));
  Expect(COTEPE_CANNOT_READ, CodeOfOpening(Folder + '/nao-ha.db', Reason), 'a missing database');
  Check(Reason = 'No such file or directory', 'the reason of a missing database: ' + Reason);
  Expect(COTEPE_NOT_A_DATABASE, CodeOfOpening(Folder + '/texto.db', Reason), 'a text');
  Expect(COTEPE_BAD_ARGUMENT, CodeOfOpening('', Reason), 'no name');
  Expect(COTEPE_BAD_ARGUMENT, CodeOf(Host.Generator, Report, Last, First, 'TDM', False), 'reversed days');
  Expect(COTEPE_BAD_ARGUMENT, CodeOf(Host.Generator, Report, First, Last, 'tdm', False), 'no command');
  Check(not FileExists(Report), 'a report was made');
  Fill(Report, 'before');
  try
    Host.Generator.Generate(Report, First, Last);
    Check(False, 'a report that is there');
  except
    on Error: ECotepe do
      Check((Error.Code = COTEPE_CANNOT_OPEN) and (Error.Reason = 'File exists'), 'the reason: ' + Error.Message);
  end;
  Before := Contents(Database);
  Expect(COTEPE_CANNOT_OPEN, CodeOf(Host.Generator, Database, First, Last, 'TDM', True), 'the database as report');
  Check(Contents(Database) = Before, 'the database was touched');
  Check(Contents(Report) = 'before', 'the old report was touched');
end;

procedure FailedQueryIsLogged(Host: THost);
var
  Broken: TCotepeGenerator;
begin
  Broken := OpenGenerator(Host, Data + '/quebrado.db');
  Expect(COTEPE_INCOMPLETE, CodeOf(Broken, Report, First, Last, 'TDM', False), 'a failed query');
  Check(Pos('Erro no select - TipoE07/no such table: versao_sb;', Host.Logged) > 0, 'the log: ' + Host.Logged);
  Check(not FileExists(Report), 'a report that is not whole');
  Broken.Free;
end;

procedure CallbacksAndCancel(Host: THost);
var
  Came: Boolean;
begin
  Host.Generator.Generate(Report, First, Last, 'RZ');
  Check(Host.Codes = 'E01 E02 E14 E15 E16 ', 'the registers: ' + Host.Codes);
  Check(Host.Lines > 5, 'their lines');
  DeleteFile(Report);
  Host.CancelAt := 'E14';
  Expect(COTEPE_CANCELLED, CodeOf(Host.Generator, Report, First, Last, 'TDM', False), 'cancel');
  Host.CancelAt := '';
  Host.RaiseAt := 'E02';
  Came := False;
  try
    Host.Generator.Generate(Report, First, Last);
  except
    on Error: EOfTheHost do
      Came := Error.Message = 'of the host';
  end;
  Check(Came, 'an exception of an event');
  Check(not FileExists(Report), 'a report of a run that ended early');
  Host.RaiseAt := '';
  Host.Generator.Generate(Report, First, Last);
  Check(IsExpected, 'the run after those');
end;

procedure SecondThreadIsRefused(Host: THost);
begin
  Host.ThreadAt := 'E01';
  Host.Generator.Generate(Report, First, Last);
  Check(Host.Second = '7 7', 'a second thread: ' + Host.Second);
  Check(IsExpected, 'the run of the first');
end;

{ Free Pascal and Delphi have arithmetic that overflows raise; the library's does not. }
procedure ArithmeticRaisesNothing(Host: THost);
var
  Extreme: TCotepeGenerator;
begin
  Extreme := OpenGenerator(Host, Data + '/extremo.db');
  Extreme.Generate(Report, First, Last);
  Check(Contents(Report) = Contents(Data + '/extremo.txt'), 'the bytes of extreme numbers');
  Extreme.Free;
end;

type
  TTest = procedure(Host: THost);

procedure Perform(Test: TTest);
var
  Host: THost;
  Generator: TCotepeGenerator;
begin
  DeleteFile(Report);
  Host := THost.Create;
  Generator := OpenGenerator(Host, Database);
  try
    Test(Host);
  finally
    Generator.Free;
    Host.Free;
  end;
end;

begin
  Data := ParamStr(1);
  Folder := ParamStr(2);
  Database := Folder + '/loja.db';
  Report := Folder + '/relat' + #$C3#$B3 + 'rio.txt';
  First := EncodeDate(2024, 1, 1);
  Last := EncodeDate(2024, 1, 31);
  Perform(BytesAreThePrograms);
  Perform(ErrorPaths);
  Perform(FailedQueryIsLogged);
  Perform(CallbacksAndCancel);
  Perform(SecondThreadIsRefused);
  Perform(ArithmeticRaisesNothing);
  if Failures = 0 then
    WriteLn('Pascal: all as expected')
  else
    Halt(1);
end.
