{ Writing a drawing, for Delphi and Free Pascal. One filing at a time in a process, from one thread. }
unit QuorvanFiling;

{$ifdef FPC}{$mode delphi}{$endif}

interface

uses
  Quorvan, QuorvanElements;

type
  { An open filing. What is filed reaches the disk with EndFiling; without it, nothing does. Elements are
    added to those of a file that is there. Raises EQuorvan. }
  TFiling = class
  private
    FIsOpen: Boolean;
  public
    constructor Create(const Path: UnicodeString);
    destructor Destroy; override;

    { Files one element; version and index are the library's to give. False for a series, which is filed
      frame by frame, and for a class that is not known. }
    function Add(Element: TElement): Boolean;

    { One frame of a series, of which there must be two at the least: the bar from Point1 to Point2 in the
      view, of the class, and with the attributes of Bar. }
    procedure AddSeriesFrame(const Point1, Point2: TPoint3; const NameOfClass: UnicodeString;
      HookLength, HookAngle: Double; Bar: TBar; Series: LongInt; ViewPoint: Integer);

    { Series that cannot be ended are left out from here on, and the record with them: what to do after
      BadSeries, before another EndFiling. }
    procedure LeaveOutTheRest;

    { Saves the drawing. }
    procedure EndFiling(const DrawingName, Version: UnicodeString; ServicePack: LongInt;
      CheckSum: Integer);
  end;

implementation

uses
  SysUtils;

type
  { Points by their coordinates. }
  TColumns = record
    Count: CInt;
    Xs, Ys, Zs: TNumbers;
  end;

function ColumnsOf(const Points: TPoints): TColumns;
var
  Place: Integer;
begin
  Result.Count := Length(Points);
  { One more: the first can be pointed at also when there is none. }
  SetLength(Result.Xs, Length(Points) + 1);
  SetLength(Result.Ys, Length(Points) + 1);
  SetLength(Result.Zs, Length(Points) + 1);
  for Place := 0 to High(Points) do
  begin
    Result.Xs[Place] := Points[Place].X;
    Result.Ys[Place] := Points[Place].Y;
    Result.Zs[Place] := Points[Place].Z;
  end;
end;

procedure FileLine(E: TLine);
begin
  Check(exportLineChecked(E.Point1.X, E.Point1.Y, E.Point1.Z, E.Point2.X, E.Point2.Y, E.Point2.Z,
    E.Color));
end;

procedure FileCircle(E: TCircle);
begin
  Check(exportCircleChecked(E.Center.X, E.Center.Y, E.Center.Z, E.Radius, E.Color));
end;

procedure FileText(E: TText);
var
  Contents: WideText;
begin
  Contents := Wide(E.Contents);
  Check(exportTextChecked(PWideText(Contents), E.Location.X, E.Location.Y, E.Location.Z, E.Angle,
    E.Color, E.JustificationX, E.JustificationY, E.Height));
end;

procedure FileFilledPolygon(E: TFilledPolygon);
var
  Columns: TColumns;
begin
  Columns := ColumnsOf(E.Points);
  Check(exportFilledPolygonChecked(Columns.Count, @Columns.Xs[0], @Columns.Ys[0], @Columns.Zs[0],
    E.Color));
end;

procedure FileMesh(E: TMesh);
var
  Columns: TColumns;
  Reference, Kind: WideText;
begin
  Columns := ColumnsOf(E.Points);
  Reference := Wide(E.Reference);
  Kind := Wide(E.Kind);
  Check(exportMeshChecked(PWideText(Reference), PWideText(Kind), E.ExtensionX, E.ExtensionY, E.Angle,
    Columns.Count, @Columns.Xs[0], @Columns.Ys[0], @Columns.Zs[0]));
end;

{ Two points and one bulge a segment; without bulges all are straight. }
procedure FileFormwork(E: TFormwork);
var
  Columns, Bulges: TColumns;
  Given: TPoints;
begin
  Given := E.Bulges;
  if Length(Given) = 0 then
    SetLength(Given, Length(E.Points) div 2);
  if Length(E.Points) <> 2 * Length(Given) then
    raise EArgumentException.Create('a formwork has two points and one bulge for every segment');
  Columns := ColumnsOf(E.Points);
  Bulges := ColumnsOf(Given);
  Check(exportFormworkChecked(Columns.Count, @Columns.Xs[0], @Columns.Ys[0], @Columns.Zs[0],
    @Bulges.Xs[0], @Bulges.Ys[0], @Bulges.Zs[0]));
end;

procedure FileControl(E: TDrawingControl);
var
  Version, Name: WideText;
begin
  Version := Wide(E.ZantoVersion);
  Name := Wide(E.DrawingName);
  Check(exportDrawingControlChecked(PWideText(Version), E.ServicePack, E.CheckSum, PWideText(Name)));
end;

{ Each text has to stay as long as the call. }
type
  TSteel = record
    Grade, Bond: WideText;
  end;

function SteelOf(Bar: TBar): TSteel;
begin
  Result.Grade := Wide(Bar.SteelGrade);
  Result.Bond := Wide(Bar.Adherence);
end;

procedure FileStraightBar(E: TStraightBar; const S: TSteel);
begin
  Check(exportBarStraightChecked(E.Point1.X, E.Point1.Y, E.Point1.Z, E.Point2.X, E.Point2.Y,
    E.Point2.Z, E.HookLength1, E.HookLength2, Ord(E.Hook1Up), Ord(E.Hook2Up), E.HookAngle1,
    E.HookAngle2, PWideText(S.Grade), PWideText(S.Bond), E.Reference, E.Diameter, Ord(E.Hidden)));
end;

procedure FilePolygonBar(E: TPolygonBar; const S: TSteel);
var
  Columns: TColumns;
begin
  Columns := ColumnsOf(E.Points);
  Check(exportBarPolygonChecked(Columns.Count, @Columns.Xs[0], @Columns.Ys[0], @Columns.Zs[0],
    E.HookLength1, E.HookLength2, Ord(E.Side), E.HookAngle1, E.HookAngle2, PWideText(S.Grade),
    PWideText(S.Bond), E.Reference, E.Diameter, Ord(E.Hidden)));
end;

procedure FileLBar(E: TLBar; const S: TSteel);
begin
  Check(exportLBarChecked(E.Point1.X, E.Point1.Y, E.Point1.Z, E.Point2.X, E.Point2.Y, E.Point2.Z,
    E.Point3.X, E.Point3.Y, E.Point3.Z, E.HookLength1, E.HookAngle1, E.HookLength2, E.HookAngle2,
    PWideText(S.Grade), PWideText(S.Bond), E.Reference, E.Diameter, Ord(E.Hidden)));
end;

procedure FileUBar(E: TUBar; const S: TSteel);
begin
  Check(exportUBarChecked(E.Point1.X, E.Point1.Y, E.Point1.Z, E.Point2.X, E.Point2.Y, E.Point2.Z,
    E.Point3.X, E.Point3.Y, E.Point3.Z, E.HookLength1, E.HookAngle1, E.HookLength2, E.HookAngle2,
    PWideText(S.Grade), PWideText(S.Bond), E.Reference, E.Diameter, Ord(E.Hidden)));
end;

procedure FilePin(E: TPin; const S: TSteel);
begin
  Check(exportPinChecked(E.Point1.X, E.Point1.Y, E.Point1.Z, E.Point2.X, E.Point2.Y, E.Point2.Z,
    E.HookLength1, E.HookLength2, E.HookAngle1, E.HookAngle2, PWideText(S.Grade), PWideText(S.Bond),
    E.Reference, E.Diameter, Ord(E.Hidden)));
end;

procedure FilePointBar(E: TPointBar; const S: TSteel);
begin
  Check(exportPointBarChecked(E.Point1.X, E.Point1.Y, E.Point1.Z, PWideText(S.Grade),
    PWideText(S.Bond), E.Reference, E.Diameter, Ord(E.Hidden)));
end;

procedure FileStirrup(E: TStirrup; const S: TSteel);
begin
  Check(exportStirrupChecked(E.Point1.X, E.Point1.Y, E.Point1.Z, E.Point2.X, E.Point2.Y, E.Point2.Z,
    E.HookLength1, E.HookAngle1, PWideText(S.Grade), PWideText(S.Bond), E.Reference, E.Diameter,
    Ord(E.Hidden)));
end;

procedure FileFrameRect(E: TFrameRect; const S: TSteel);
begin
  Check(exportFrameRectChecked(E.Point1.X, E.Point1.Y, E.Point1.Z, E.Point2.X, E.Point2.Y,
    E.Point2.Z, E.Point3.X, E.Point3.Y, E.Point3.Z, E.HookLength1, E.HookAngle1, PWideText(S.Grade),
    PWideText(S.Bond), E.Reference, E.Diameter, Ord(E.Hidden)));
end;

procedure FileFrameCirc(E: TFrameCirc; const S: TSteel);
begin
  Check(exportFrameCircChecked(E.Center.X, E.Center.Y, E.Center.Z, E.StartPoint.X, E.StartPoint.Y,
    E.StartPoint.Z, E.FrameRadius, E.RecoverLength, E.HookLength1, E.HookAngle1, PWideText(S.Grade),
    PWideText(S.Bond), E.Reference, E.Diameter, Ord(E.Hidden)));
end;

function FileBar(E: TBar): Boolean;
var
  S: TSteel;
begin
  Result := True;
  S := SteelOf(E);
  if E is TStraightBar then
    FileStraightBar(TStraightBar(E), S)
  else if E is TPolygonBar then
    FilePolygonBar(TPolygonBar(E), S)
  else if E is TLBar then
    FileLBar(TLBar(E), S)
  else if E is TUBar then
    FileUBar(TUBar(E), S)
  else if E is TPin then
    FilePin(TPin(E), S)
  else if E is TPointBar then
    FilePointBar(TPointBar(E), S)
  else if E is TStirrup then
    FileStirrup(TStirrup(E), S)
  else if E is TFrameRect then
    FileFrameRect(TFrameRect(E), S)
  else if E is TFrameCirc then
    FileFrameCirc(TFrameCirc(E), S)
  else
    Result := False;
end;

constructor TFiling.Create(const Path: UnicodeString);
var
  WidePath: WideText;
begin
  inherited Create;
  WidePath := Wide(Path);
  Check(startFilingChecked(PWideText(WidePath)));
  FIsOpen := True;
end;

destructor TFiling.Destroy;
begin
  if FIsOpen then
    quorvanAbandonFiling;
  inherited Destroy;
end;

function TFiling.Add(Element: TElement): Boolean;
begin
  Result := True;
  if Element is TBar then
    Result := FileBar(TBar(Element))
  else if Element is TLine then
    FileLine(TLine(Element))
  else if Element is TCircle then
    FileCircle(TCircle(Element))
  else if Element is TText then
    FileText(TText(Element))
  else if Element is TFilledPolygon then
    FileFilledPolygon(TFilledPolygon(Element))
  else if Element is TMesh then
    FileMesh(TMesh(Element))
  else if Element is TFormwork then
    FileFormwork(TFormwork(Element))
  else if Element is TDrawingControl then
    FileControl(TDrawingControl(Element))
  else
    Result := False;
end;

procedure TFiling.AddSeriesFrame(const Point1, Point2: TPoint3; const NameOfClass: UnicodeString;
  HookLength, HookAngle: Double; Bar: TBar; Series: LongInt; ViewPoint: Integer);
var
  S: TSteel;
  Name: WideText;
begin
  S := SteelOf(Bar);
  Name := Wide(NameOfClass);
  Check(pushRepartitionFrameRectChecked(Point1.X, Point1.Y, Point1.Z, Point2.X, Point2.Y, Point2.Z,
    PWideText(Name), HookLength, HookAngle, PWideText(S.Grade), PWideText(S.Bond), Bar.Reference,
    Bar.Diameter, Ord(Bar.Hidden), Series, ViewPoint, 0));
end;

procedure TFiling.LeaveOutTheRest;
begin
  Check(stopFilingChecked);
end;

procedure TFiling.EndFiling(const DrawingName, Version: UnicodeString; ServicePack: LongInt;
  CheckSum: Integer);
var
  WideName, WideVersion: WideText;
begin
  WideName := Wide(DrawingName);
  WideVersion := Wide(Version);
  Check(endFilingChecked(PWideText(WideVersion), ServicePack, PWideText(WideName), CheckSum));
  FIsOpen := False;
end;

end.
