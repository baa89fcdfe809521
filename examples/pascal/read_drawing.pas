{ A reader in Pascal: lists every element of a drawing with its items, an element a line, and files the
  elements again.

    read_drawing FILE [COPY]

    fpc -Mdelphi -Fl<folder of libquorvan.so> read_drawing.pas }
program read_drawing;

{$ifdef FPC}{$mode delphi}{$endif}
{$apptype console}

uses
  SysUtils, Classes, Math, Quorvan, QuorvanElements, QuorvanDrawing, QuorvanFiling;

type
  { Collects the items of an element as texts. }
  TItemTexts = class(TItemVisitor)
  private
    FTexts: TStringList;
    procedure Add(const Item, Value: AnsiString);
  public
    constructor Create(Texts: TStringList);
    procedure Point(const Item: AnsiString; var Value: TPoint3); override;
    procedure Number(const Item: AnsiString; var Value: Double); override;
    procedure Whole(const Item: AnsiString; var Value: LongInt); override;
    procedure Color(const Item: AnsiString; var Value: LongWord); override;
    procedure Flag(const Item: AnsiString; var Value: Boolean); override;
    procedure Text(const Item: AnsiString; var Value: UnicodeString); override;
    procedure Points(const Item: AnsiString; var Value: TPoints); override;
    procedure Segments(const Item: AnsiString; var Value, Bulges: TPoints); override;
    procedure Numbers(const Item: AnsiString; var Value: TNumbers); override;
  end;

var
  WithPoint: TFormatSettings;

{ Three decimals, and no zero with a sign. }
function NumberText(Value: Double): AnsiString;
begin
  Result := AnsiString(Format('%.3f', [Value], WithPoint));
  if Result = '-0.000' then
    Result := '0.000';
end;

function PointText(const Value: TPoint3): AnsiString;
begin
  Result := '(' + NumberText(Value.X) + ' ' + NumberText(Value.Y) + ' ' + NumberText(Value.Z) + ')';
end;

constructor TItemTexts.Create(Texts: TStringList);
begin
  inherited Create;
  FTexts := Texts;
end;

procedure TItemTexts.Add(const Item, Value: AnsiString);
begin
  FTexts.Add(string(Item + ' ' + Value));
end;

procedure TItemTexts.Point(const Item: AnsiString; var Value: TPoint3);
begin
  Add(Item, PointText(Value));
end;

procedure TItemTexts.Number(const Item: AnsiString; var Value: Double);
begin
  Add(Item, NumberText(Value));
end;

procedure TItemTexts.Whole(const Item: AnsiString; var Value: LongInt);
begin
  Add(Item, AnsiString(IntToStr(Value)));
end;

procedure TItemTexts.Color(const Item: AnsiString; var Value: LongWord);
begin
  Add(Item, AnsiString(IntToStr(Int64(Value))));
end;

procedure TItemTexts.Flag(const Item: AnsiString; var Value: Boolean);
begin
  if Value then
    Add(Item, 'yes')
  else
    Add(Item, 'no');
end;

procedure TItemTexts.Text(const Item: AnsiString; var Value: UnicodeString);
begin
  Add(Item, AnsiString(UTF8Encode(Value)));
end;

procedure TItemTexts.Points(const Item: AnsiString; var Value: TPoints);
var
  Place: Integer;
  Line: AnsiString;
begin
  Line := '';
  for Place := 0 to High(Value) do
  begin
    if Place > 0 then
      Line := Line + ' ';
    Line := Line + PointText(Value[Place]);
  end;
  Add(Item, '[' + Line + ']');
end;

procedure TItemTexts.Segments(const Item: AnsiString; var Value, Bulges: TPoints);
begin
  Points(Item, Value);
  Points('Bulges', Bulges);
end;

procedure TItemTexts.Numbers(const Item: AnsiString; var Value: TNumbers);
var
  Place: Integer;
  Line: AnsiString;
begin
  Line := '';
  for Place := 0 to High(Value) do
  begin
    if Place > 0 then
      Line := Line + ' ';
    Line := Line + NumberText(Value[Place]);
  end;
  Add(Item, '[' + Line + ']');
end;

function ByBytes(List: TStringList; First, Second: Integer): Integer;
begin
  Result := CompareStr(List[First], List[Second]);
end;

function LineOf(Element: TElement): AnsiString;
var
  Texts: TStringList;
  Visitor: TItemTexts;
  Place: Integer;
begin
  Result := Element.NameOfClass + ' ' + AnsiString(IntToStr(Element.Index));
  Texts := TStringList.Create;
  Visitor := TItemTexts.Create(Texts);
  try
    Element.Visit(Visitor);
    Texts.CustomSort(ByBytes);
    for Place := 0 to Texts.Count - 1 do
      Result := Result + ', ' + AnsiString(Texts[Place]);
    for Place := 0 to High(Element.Problems) do
      Result := Result + ', ' + Element.Problems[Place].Item + ' is ' + Element.Problems[Place].Reason;
  finally
    Visitor.Free;
    Texts.Free;
  end;
end;

procedure ListSeries(Drawing: TDrawing; Series: TRepartition);
var
  Bar: TElement;
begin
  Bar := Drawing.BarOf(Series);
  Write('series of ', Length(Series.Positions) + 1, ' bars of mark ');
  if Bar is TBar then
    WriteLn(TBar(Bar).Reference)
  else
    WriteLn('none');
end;

procedure List(Drawing: TDrawing);
var
  Place: Integer;
begin
  for Place := 0 to Drawing.Count - 1 do
    WriteLn(LineOf(Drawing[Place]));
  WriteLn(Drawing.Count, ' elements, ', Drawing.BarCount, ' bars');
  for Place := 0 to Drawing.Count - 1 do
    if Drawing[Place] is TRepartition then
      ListSeries(Drawing, TRepartition(Drawing[Place]));
end;

procedure CopyTo(Drawing: TDrawing; const Path: UnicodeString);
var
  Filing: TFiling;
  Control: TDrawingControl;
  Place: Integer;
begin
  Control := Drawing.Control;
  Filing := TFiling.Create(Path);
  try
    for Place := 0 to Drawing.Count - 1 do
      if Drawing[Place] <> Control then
        Filing.Add(Drawing[Place]);
    if Control = nil then
      Filing.EndFiling('', '', 0, 0)
    else
      Filing.EndFiling(Control.DrawingName, Control.ZantoVersion, Control.ServicePack,
        Control.CheckSum);
  finally
    Filing.Free;
  end;
end;

var
  Drawing: TDrawing;

begin
  { The library expects floating point as C has it, without exceptions. }
  SetExceptionMask([exInvalidOp, exDenormalized, exZeroDivide, exOverflow, exUnderflow, exPrecision]);
  WithPoint := DefaultFormatSettings;
  WithPoint.DecimalSeparator := '.';
  if (ParamCount <> 1) and (ParamCount <> 2) then
  begin
    WriteLn(StdErr, 'usage: read_drawing FILE [COPY]');
    Halt(2);
  end;
  try
    Drawing := TDrawing.Read(UnicodeString(ParamStr(1)));
    try
      List(Drawing);
      if ParamCount = 2 then
        CopyTo(Drawing, UnicodeString(ParamStr(2)));
    finally
      Drawing.Free;
    end;
  except
    on Error: EQuorvan do
    begin
      WriteLn(StdErr, ParamStr(1), ': ', Error.Message);
      Halt(1);
    end;
  end;
end.
