{ A host in Pascal: example DATABASE REPORT FIRST_DAY LAST_DAY, days as DDMMYYYY. }
program example;

{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}

uses
  SysUtils, cotepe;

type
  THost = class(TObject)
    procedure Log(Sender: TObject; const Text, Reason: string);
    procedure Clock(Sender: TObject; var Time: TDateTime);
  end;

procedure THost.Log(Sender: TObject; const Text, Reason: string);
begin
  WriteLn(ErrOutput, 'host: ', Text, ': ', Reason);
end;

{ The printer's clock: this one stands still. }
procedure THost.Clock(Sender: TObject; var Time: TDateTime);
begin
  Time := EncodeDate(2024, 2, 29) + EncodeTime(8, 30, 0, 0);
end;

function Day(const Text: string): TDateTime;
begin
  Result := EncodeDate(StrToInt(Copy(Text, 5, 4)), StrToInt(Copy(Text, 3, 2)), StrToInt(Copy(Text, 1, 2)));
end;

procedure WriteReport(Host: THost; const Database, Report: string; FirstDay, LastDay: TDateTime);
var
  Generator: TCotepeGenerator;
begin
  Generator := TCotepeGenerator.Create(Database);
  try
    Generator.Layout := 2;
    Generator.SetIdentity('BR0000000000000001', 'IMPRESSORA', 'ECF-IF');
    Generator.OnLog := Host.Log;
    Generator.OnClock := Host.Clock;
    Generator.Generate(Report, FirstDay, LastDay, 'TDM', True);
  finally
    Generator.Free;
  end;
end;

var
  Host: THost;
begin
  Host := THost.Create;
  try
    WriteReport(Host, ParamStr(1), ParamStr(2), Day(ParamStr(3)), Day(ParamStr(4)));
    WriteLn('cotepe ', CotepeLibraryVersion);
  except
    on Error: ECotepe do
    begin
      WriteLn(ErrOutput, 'cotepe: ', Error.Message);
      ExitCode := Error.Code;
    end;
  end;
  Host.Free;
end.
