{ A host in Pascal that writes a small drawing: the elevation of a beam with its bottom bar and its
  links.

    write_drawing FILE [LINKS]

    fpc -Mdelphi -Fl<folder of libquorvan.so> write_drawing.pas

  Lengths are in millimetres. Whatever goes wrong is told, and what can be saved is saved. }
program write_drawing;

{$ifdef FPC}{$mode delphi}{$endif}
{$apptype console}

uses
  SysUtils, Math, Quorvan, QuorvanElements, QuorvanFiling;

{ Files the element, which is not needed afterwards. }
procedure Add(Filing: TFiling; Element: TElement);
begin
  try
    Filing.Add(Element);
  finally
    Element.Free;
  end;
end;

function Outline: TFormwork;
var
  Corners: array[0..4] of TPoint3;
  Side: Integer;
begin
  Corners[0] := PointAt(0, 0, 0);
  Corners[1] := PointAt(5000, 0, 0);
  Corners[2] := PointAt(5000, 500, 0);
  Corners[3] := PointAt(0, 500, 0);
  Corners[4] := Corners[0];
  Result := TFormwork.Create;
  SetLength(Result.Points, 8);
  for Side := 0 to 3 do
  begin
    Result.Points[2 * Side] := Corners[Side];
    Result.Points[2 * Side + 1] := Corners[Side + 1];
  end;
end;

function Title: TText;
begin
  Result := TText.Create;
  Result.Contents := UnicodeString('Poutre B12 ') + WideChar($2013) + ' 1 ' + WideChar($00F8) + ' 20';
  Result.Location := PointAt(0, 600, 0);
  Result.Color := 7;
  Result.Height := 100;
end;

procedure Mark(Bar: TBar; Reference: LongInt; Diameter: Double);
begin
  Bar.SteelGrade := 'B500B';
  Bar.Adherence := 'HA';
  Bar.Reference := Reference;
  Bar.Diameter := Diameter;
end;

function BottomBar: TStraightBar;
begin
  Result := TStraightBar.Create;
  Mark(Result, 1, 20);
  Result.Point1 := PointAt(30, 40, 0);
  Result.Point2 := PointAt(4970, 40, 0);
  Result.HookLength1 := 150;
  Result.HookLength2 := 150;
  Result.Hook1Up := True;
  Result.Hook2Up := True;
  Result.HookAngle1 := 90;
  Result.HookAngle2 := 90;
end;

procedure AddLinks(Filing: TFiling; Links: Integer);
var
  Frame: TFrameRect;
  Link: Integer;
  X: Double;
begin
  Frame := TFrameRect.Create;
  try
    Mark(Frame, 2, 8);
    Frame.Point1 := PointAt(200, 30, 0);
    Frame.Point2 := PointAt(200, 470, 0);
    Frame.Point3 := PointAt(200, 470, 240);
    Frame.HookLength1 := 80;
    Frame.HookAngle1 := 135;
    Filing.Add(Frame);
    for Link := 0 to Links - 1 do
    begin
      X := 200 + 200 * Link;
      Filing.AddSeriesFrame(PointAt(X, 30, 0), PointAt(X, 470, 0), 'CKtZantoFrameRect', 80, 135, Frame,
        1, 1);
    end;
  finally
    Frame.Free;
  end;
end;

procedure EndFiling(Filing: TFiling);
begin
  Filing.EndFiling('B12', '2025', 1, 42);
end;

procedure WriteDrawing(const Path: UnicodeString; Links: Integer);
var
  Filing: TFiling;
begin
  Filing := TFiling.Create(Path);
  try
    Add(Filing, Outline);
    Add(Filing, Title);
    Add(Filing, BottomBar);
    AddLinks(Filing, Links);
    try
      EndFiling(Filing);
    except
      on Error: EQuorvan do
      begin
        if Error.Number = BadSeries then
        begin
          Filing.LeaveOutTheRest;
          EndFiling(Filing);
        end;
        raise;
      end;
    end;
  finally
    Filing.Free;
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
    WriteDrawing(UnicodeString(ParamStr(1)), Links);
  except
    on Error: EQuorvan do
    begin
      WriteLn(StdErr, ParamStr(1), ': ', Error.Message);
      Halt(1);
    end;
  end;
end.
