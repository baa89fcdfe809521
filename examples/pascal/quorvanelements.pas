{ The elements of a drawing, a class for each, for Delphi and Free Pascal. Members bear the names of the
  items; lengths and angles are in the units of the producing program. What is missing in the file has
  the value of a new object, and stands in Problems.

  What stands between two lines is made from the item tables of the library;
  `QUORVAN_UPDATE_GOLDEN=1 tools_tests --gtest_filter='*ReaderSources*'` writes it anew. }
unit QuorvanElements;

{$ifdef FPC}{$mode delphi}{$endif}

interface

type
  { A point or a vector. }
  TPoint3 = record
    X, Y, Z: Double;
  end;
  TPoints = array of TPoint3;
  TNumbers = array of Double;

  { Meets the items of an element, in the order of the file, under their names there. }
  TItemVisitor = class
  public
    procedure Point(const Item: AnsiString; var Value: TPoint3); virtual; abstract;
    procedure Number(const Item: AnsiString; var Value: Double); virtual; abstract;
    procedure Whole(const Item: AnsiString; var Value: LongInt); virtual; abstract;
    procedure Color(const Item: AnsiString; var Value: LongWord); virtual; abstract;
    procedure Flag(const Item: AnsiString; var Value: Boolean); virtual; abstract;
    procedure Text(const Item: AnsiString; var Value: UnicodeString); virtual; abstract;
    procedure Points(const Item: AnsiString; var Value: TPoints); virtual; abstract;
    procedure Segments(const Item: AnsiString; var Value, Bulges: TPoints); virtual; abstract;
    procedure Numbers(const Item: AnsiString; var Value: TNumbers); virtual; abstract;
  end;

  { An item that could not be read, or not all of it: "missing", "of another kind", "incomplete". }
  TProblem = record
    Item, Reason: AnsiString;
  end;

  { What every element has; alone, an element of a class that is not known. }
  TElement = class
  public
    NameOfClass: AnsiString;
    Version, Index: LongInt;
    Problems: array of TProblem;
    procedure Visit(Visitor: TItemVisitor); virtual;
  end;
  TElementClass = class of TElement;

  { --- made from the item tables ---------------------------------------------------------------- }

  { What every bar and link has. }
  TBar = class(TElement)
  public
    SteelGrade, Adherence: UnicodeString;
    Diameter: Double;
    Reference: LongInt;
    Hidden: Boolean;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A line segment of the drawing. }
  TLine = class(TElement)
  public
    Point1, Point2: TPoint3;
    Color: LongWord;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A circle of the drawing. }
  TCircle = class(TElement)
  public
    Center: TPoint3;
    Radius: Double;
    Color: LongWord;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A single line of text. }
  TText = class(TElement)
  public
    Contents: UnicodeString;
    Location: TPoint3;
    Angle, Height: Double;
    JustificationX, JustificationY: LongInt;
    Color: LongWord;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A filled polygon of the drawing. }
  TFilledPolygon = class(TElement)
  public
    Points: TPoints;
    Color: LongWord;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A sheet of welded mesh. }
  TMesh = class(TElement)
  public
    Kind, Reference: UnicodeString;
    Angle, ExtensionX, ExtensionY: Double;
    Points: TPoints;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { An outline of the concrete. Two points and one bulge a segment. }
  TFormwork = class(TElement)
  public
    Points, Bulges: TPoints;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A straight bar with a hook at either end. }
  TStraightBar = class(TBar)
  public
    Point1, Point2: TPoint3;
    HookLength1, HookLength2, HookAngle1, HookAngle2: Double;
    Hook1Up, Hook2Up: Boolean;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A bar bent once (L shape). }
  TLBar = class(TBar)
  public
    Point1, Point2, Point3: TPoint3;
    HookLength1, HookAngle1, HookLength2, HookAngle2: Double;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A bar bent twice (U shape). }
  TUBar = class(TBar)
  public
    Point1, Point2, Point3: TPoint3;
    HookLength1, HookAngle1, HookLength2, HookAngle2: Double;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A pin: a straight tie with hooks. }
  TPin = class(TBar)
  public
    Point1, Point2: TPoint3;
    HookLength1, HookLength2, HookAngle1, HookAngle2: Double;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A bar seen end-on. }
  TPointBar = class(TBar)
  public
    Point1: TPoint3;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A bent bar given by its polyline. }
  TPolygonBar = class(TBar)
  public
    Points: TPoints;
    HookLength1, HookLength2, HookAngle1, HookAngle2: Double;
    Side: Boolean;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A closed rectangular link. }
  TFrameRect = class(TBar)
  public
    Point1, Point2, Point3: TPoint3;
    HookLength1, HookAngle1: Double;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A closed circular link. }
  TFrameCirc = class(TBar)
  public
    Center, StartPoint: TPoint3;
    FrameRadius, RecoverLength, HookLength1, HookAngle1: Double;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { An open link given by two points. }
  TStirrup = class(TBar)
  public
    Point1, Point2: TPoint3;
    HookLength1, HookAngle1: Double;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { A distribution of identical bars along a line. It has an index of its own and that of the bar. }
  TRepartition = class(TElement)
  public
    Point1, Point2, Bulge, Axis: TPoint3;
    ViewPoint, BarIndex: LongInt;
    AxisDistancesTop, AxisDistancesBottom, Positions: TNumbers;
    DefClassName: UnicodeString;
    Hidden: Boolean;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { The record that names the drawing and closes every transfer. }
  TDrawingControl = class(TElement)
  public
    ZantoVersion, DrawingName: UnicodeString;
    ServicePack, CheckSum: LongInt;
    procedure Visit(Visitor: TItemVisitor); override;
  end;

  { --- end of what is made ---------------------------------------------------------------------- }

function PointAt(X, Y, Z: Double): TPoint3;

{ The class of that name; TElement for one that is not known. }
function ElementClassOf(const Name: AnsiString): TElementClass;

implementation

function PointAt(X, Y, Z: Double): TPoint3;
begin
  Result.X := X;
  Result.Y := Y;
  Result.Z := Z;
end;

type
  TKnownClass = record
    Name: AnsiString;
    ElementClass: TElementClass;
  end;

{ --- made from the item tables ------------------------------------------------------------------ }

const
  KnownClasses: array[0..16] of TKnownClass = (
    (Name: 'CKtZantoLine'; ElementClass: TLine),
    (Name: 'CKtZantoCircle'; ElementClass: TCircle),
    (Name: 'CKtZantoText'; ElementClass: TText),
    (Name: 'CKtFilledPolygon'; ElementClass: TFilledPolygon),
    (Name: 'CKtZantoMesh'; ElementClass: TMesh),
    (Name: 'CKtZantoFormwork'; ElementClass: TFormwork),
    (Name: 'CKtZantoStraightBar'; ElementClass: TStraightBar),
    (Name: 'CKtZantoLBar'; ElementClass: TLBar),
    (Name: 'CKtZantoUBar'; ElementClass: TUBar),
    (Name: 'CKtZantoPin'; ElementClass: TPin),
    (Name: 'CKtZantoPointBar'; ElementClass: TPointBar),
    (Name: 'CKtZantoPolygonBar'; ElementClass: TPolygonBar),
    (Name: 'CKtZantoFrameRect'; ElementClass: TFrameRect),
    (Name: 'CKtZantoFrameCirc'; ElementClass: TFrameCirc),
    (Name: 'CKtZantoStirrup'; ElementClass: TStirrup),
    (Name: 'CKtZantoRepartition'; ElementClass: TRepartition),
    (Name: 'CKtDrawingControl'; ElementClass: TDrawingControl));

procedure TBar.Visit(Visitor: TItemVisitor);
begin
  Visitor.Text('SteelGrade', SteelGrade);
  Visitor.Text('Adherence', Adherence);
  Visitor.Number('Diameter', Diameter);
  Visitor.Whole('Reference', Reference);
  Visitor.Flag('Hidden', Hidden);
end;

procedure TLine.Visit(Visitor: TItemVisitor);
begin
  Visitor.Point('Point1', Point1);
  Visitor.Point('Point2', Point2);
  Visitor.Color('Color', Color);
end;

procedure TCircle.Visit(Visitor: TItemVisitor);
begin
  Visitor.Point('Center', Center);
  Visitor.Number('Radius', Radius);
  Visitor.Color('Color', Color);
end;

procedure TText.Visit(Visitor: TItemVisitor);
begin
  Visitor.Text('Contents', Contents);
  Visitor.Point('Location', Location);
  Visitor.Number('Angle', Angle);
  Visitor.Whole('JustificationX', JustificationX);
  Visitor.Whole('JustificationY', JustificationY);
  Visitor.Color('Color', Color);
  Visitor.Number('Height', Height);
end;

procedure TFilledPolygon.Visit(Visitor: TItemVisitor);
begin
  Visitor.Points('Vector', Points);
  Visitor.Color('Color', Color);
end;

procedure TMesh.Visit(Visitor: TItemVisitor);
begin
  Visitor.Text('Type', Kind);
  Visitor.Text('Reference', Reference);
  Visitor.Number('Angle', Angle);
  Visitor.Number('ExtensionX', ExtensionX);
  Visitor.Number('ExtensionY', ExtensionY);
  Visitor.Points('Vector', Points);
end;

procedure TFormwork.Visit(Visitor: TItemVisitor);
begin
  Visitor.Segments('Vector', Points, Bulges);
end;

procedure TStraightBar.Visit(Visitor: TItemVisitor);
begin
  Visitor.Point('Point1', Point1);
  Visitor.Point('Point2', Point2);
  Visitor.Number('HookLength1', HookLength1);
  Visitor.Number('HookLength2', HookLength2);
  Visitor.Flag('Hook1Up', Hook1Up);
  Visitor.Flag('Hook2Up', Hook2Up);
  Visitor.Number('HookAngle1', HookAngle1);
  Visitor.Number('HookAngle2', HookAngle2);
  inherited Visit(Visitor);
end;

procedure TLBar.Visit(Visitor: TItemVisitor);
begin
  Visitor.Point('Point1', Point1);
  Visitor.Point('Point2', Point2);
  Visitor.Point('Point3', Point3);
  Visitor.Number('HookLength1', HookLength1);
  Visitor.Number('HookAngle1', HookAngle1);
  Visitor.Number('HookLength2', HookLength2);
  Visitor.Number('HookAngle2', HookAngle2);
  inherited Visit(Visitor);
end;

procedure TUBar.Visit(Visitor: TItemVisitor);
begin
  Visitor.Point('Point1', Point1);
  Visitor.Point('Point2', Point2);
  Visitor.Point('Point3', Point3);
  Visitor.Number('HookLength1', HookLength1);
  Visitor.Number('HookAngle1', HookAngle1);
  Visitor.Number('HookLength2', HookLength2);
  Visitor.Number('HookAngle2', HookAngle2);
  inherited Visit(Visitor);
end;

procedure TPin.Visit(Visitor: TItemVisitor);
begin
  Visitor.Point('Point1', Point1);
  Visitor.Point('Point2', Point2);
  Visitor.Number('HookLength1', HookLength1);
  Visitor.Number('HookLength2', HookLength2);
  Visitor.Number('HookAngle1', HookAngle1);
  Visitor.Number('HookAngle2', HookAngle2);
  inherited Visit(Visitor);
end;

procedure TPointBar.Visit(Visitor: TItemVisitor);
begin
  Visitor.Point('Point1', Point1);
  inherited Visit(Visitor);
end;

procedure TPolygonBar.Visit(Visitor: TItemVisitor);
begin
  Visitor.Points('NoPoints', Points);
  Visitor.Number('HookLength1', HookLength1);
  Visitor.Number('HookLength2', HookLength2);
  Visitor.Flag('Side', Side);
  Visitor.Number('HookAngle1', HookAngle1);
  Visitor.Number('HookAngle2', HookAngle2);
  inherited Visit(Visitor);
end;

procedure TFrameRect.Visit(Visitor: TItemVisitor);
begin
  Visitor.Point('Point1', Point1);
  Visitor.Point('Point2', Point2);
  Visitor.Point('Point3', Point3);
  Visitor.Number('HookLength1', HookLength1);
  Visitor.Number('HookAngle1', HookAngle1);
  inherited Visit(Visitor);
end;

procedure TFrameCirc.Visit(Visitor: TItemVisitor);
begin
  Visitor.Point('Center', Center);
  Visitor.Point('StartPoint', StartPoint);
  Visitor.Number('FrameRadius', FrameRadius);
  Visitor.Number('RecoverLength', RecoverLength);
  Visitor.Number('HookLength1', HookLength1);
  Visitor.Number('HookAngle1', HookAngle1);
  inherited Visit(Visitor);
end;

procedure TStirrup.Visit(Visitor: TItemVisitor);
begin
  Visitor.Point('Point1', Point1);
  Visitor.Point('Point2', Point2);
  Visitor.Number('HookLength1', HookLength1);
  Visitor.Number('HookAngle1', HookAngle1);
  inherited Visit(Visitor);
end;

procedure TRepartition.Visit(Visitor: TItemVisitor);
begin
  Visitor.Point('Point1', Point1);
  Visitor.Point('Point2', Point2);
  Visitor.Point('Bulge', Bulge);
  Visitor.Whole('ViewPoint', ViewPoint);
  Visitor.Point('Axis', Axis);
  Visitor.Numbers('AxisDistancesTop', AxisDistancesTop);
  Visitor.Numbers('AxisDistancesBottom', AxisDistancesBottom);
  Visitor.Numbers('Positions', Positions);
  Visitor.Text('DefClassName', DefClassName);
  Visitor.Whole('Index', BarIndex);
  Visitor.Flag('Hidden', Hidden);
end;

procedure TDrawingControl.Visit(Visitor: TItemVisitor);
begin
  Visitor.Text('ZantoVersion', ZantoVersion);
  Visitor.Whole('ServicePack', ServicePack);
  Visitor.Whole('CheckSum', CheckSum);
  Visitor.Text('DrawingName', DrawingName);
end;

{ --- end of what is made ------------------------------------------------------------------------ }

function ElementClassOf(const Name: AnsiString): TElementClass;
var
  Known: Integer;
begin
  Result := TElement;
  for Known := Low(KnownClasses) to High(KnownClasses) do
    if KnownClasses[Known].Name = Name then
      Result := KnownClasses[Known].ElementClass;
end;

procedure TElement.Visit(Visitor: TItemVisitor);
begin
end;

end.
