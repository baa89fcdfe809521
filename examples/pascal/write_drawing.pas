{ A host in Pascal that writes a small drawing: the elevation of a beam with its bottom bar and its
  links.

    write_drawing FILE [LINKS]

    fpc -Mdelphi -Fl<folder of libquorvan.so> write_drawing.pas

  Lengths are in millimetres. Whatever goes wrong is told, and what can be saved is saved. }
program write_drawing;

{$ifdef FPC}{$mode delphi}{$endif}
{$apptype console}

uses
  SysUtils, Math, Quorvan;

const
  { Four sides of 5000 x 500, two points a side, one bulge a side: straight. }
  Xs: array[0..7] of Double = (0, 5000, 5000, 5000, 5000, 0, 0, 0);
  Ys: array[0..7] of Double = (0, 0, 0, 500, 500, 500, 500, 0);
  Zeros: array[0..7] of Double = (0, 0, 0, 0, 0, 0, 0, 0);

procedure FileElements(Links: Integer);
var
  Link: Integer;
  X: Double;
  Contents, Grade, Bond, Frame: WideText;
begin
  { Each text has to stay as long as the call. }
  Contents := Wide(UnicodeString('Poutre B12 ') + WideChar($2013) + ' 1 ' + WideChar($00F8) + ' 20');
  Grade := Wide('B500B');
  Bond := Wide('HA');
  Frame := Wide('CKtZantoFrameRect');
  Check(exportFormworkChecked(8, @Xs[0], @Ys[0], @Zeros[0], @Zeros[0], @Zeros[0], @Zeros[0]));
  Check(exportTextChecked(PWideText(Contents), 0, 600, 0, 0, 7, 0, 0, 100));
  { Byte(ByteBool(True)) is 255, and as good as 1. }
  Check(exportBarStraightChecked(30, 40, 0, 4970, 40, 0, 150, 150, Byte(ByteBool(True)),
    Byte(ByteBool(True)), 90, 90, PWideText(Grade), PWideText(Bond), 1, 20, 0));
  Check(exportFrameRectChecked(200, 30, 0, 200, 470, 0, 200, 470, 240, 80, 135, PWideText(Grade),
    PWideText(Bond), 2, 8, 0));
  for Link := 0 to Links - 1 do
  begin
    X := 200 + 200 * Link;
    Check(pushRepartitionFrameRectChecked(X, 30, 0, X, 470, 0, PWideText(Frame), 80, 135,
      PWideText(Grade), PWideText(Bond), 2, 8, 0, 1, 1, 0));
  end;
end;

procedure EndFiling;
var
  Version, Drawing: WideText;
begin
  Version := Wide('2025');
  Drawing := Wide('B12');
  Check(endFilingChecked(PWideText(Version), 1, PWideText(Drawing), 42));
end;

procedure WriteDrawing(const Path: string; Links: Integer);
var
  WidePath: WideText;
begin
  WidePath := Wide(UnicodeString(Path));
  Check(startFilingChecked(PWideText(WidePath)));
  FileElements(Links);
  try
    EndFiling;
  except
    on Error: EQuorvan do
    begin
      if Error.Number = BadSeries then
      begin
        { Saves the drawing without the series. }
        Check(stopFilingChecked);
        EndFiling;
      end;
      raise;
    end;
  end;
end;

var
  Links: Integer;

begin
  { The library expects floating point as C has it, without exceptions. }
  SetExceptionMask([exInvalidOp, exDenormalized, exZeroDivide, exOverflow, exUnderflow, exPrecision]);
  if (ParamCount <> 1) and (ParamCount <> 2) then
  begin
    WriteLn(StdErr, 'usage: write_drawing FILE [LINKS]');
    Halt(2);
  end;
  Links := 24;
  if ParamCount = 2 then
    Links := StrToInt(ParamStr(2));
  try
    WriteDrawing(ParamStr(1), Links);
  except
    on Error: EQuorvan do
    begin
      WriteLn(StdErr, ParamStr(1), ': ', Error.Message);
      Halt(1);
    end;
  end;
end.
