{ Reading a drawing, for Delphi and Free Pascal. }
unit QuorvanDrawing;

{$ifdef FPC}{$mode delphi}{$endif}

interface

uses
  Quorvan, QuorvanElements;

type
  { The elements of a drawing, in the order of the file. They live as long as the drawing. }
  TDrawing = class
  private
    FElements: array of TElement;
    function GetElement(Place: Integer): TElement;
    procedure Take(Opened: Pointer);
  public
    { The drawing in the file, which is never written. Raises EQuorvan. }
    constructor Read(const Path: UnicodeString);
    { The drawing in the bytes of a file. }
    constructor ReadBytes(Bytes: Pointer; Size: NativeUInt);
    destructor Destroy; override;
    function Count: Integer;
    function BarCount: Integer;
    { The bar that the series repeats; nil where it is not in the drawing. }
    function BarOf(Series: TRepartition): TElement;
    { The last drawing control record; nil without one. }
    function Control: TDrawingControl;
    property Elements[Place: Integer]: TElement read GetElement; default;
  end;

implementation

type
  { Gives the items the values of the file. }
  TItemReader = class(TItemVisitor)
  private
    FHandle: Pointer;
    FElement: TElement;
    function IsOptional(const Item: AnsiString): Boolean;
    procedure Note(const Item: AnsiString; AResult: CInt);
  public
    constructor Create(Handle: Pointer; Element: TElement);
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

  TReadPoints = function(item: Pointer; xyz: Pointer; room: NativeUInt; var count: NativeUInt): CInt;
    cdecl;

constructor TItemReader.Create(Handle: Pointer; Element: TElement);
begin
  inherited Create;
  FHandle := Handle;
  FElement := Element;
end;

function TItemReader.IsOptional(const Item: AnsiString): Boolean;
var
  Number, Place: Integer;
begin
  Result := False;
  Number := quorvanElementClassNumber(FHandle);
  for Place := 0 to quorvanClassItemCount(Number) - 1 do
    if AnsiString(quorvanClassItemName(Number, Place)) = Item then
      Result := quorvanClassItemIsOptional(Number, Place) <> 0;
end;

procedure TItemReader.Note(const Item: AnsiString; AResult: CInt);
var
  Problem: TProblem;
begin
  if (AResult = 0) or ((AResult = NoItem) and IsOptional(Item)) then
    Exit;
  Problem.Item := Item;
  case AResult of
    NoItem: Problem.Reason := 'missing';
    OtherKind: Problem.Reason := 'of another kind';
    Incomplete: Problem.Reason := 'incomplete';
  else
    Check(AResult);
  end;
  SetLength(FElement.Problems, Length(FElement.Problems) + 1);
  FElement.Problems[High(FElement.Problems)] := Problem;
end;

procedure TItemReader.Point(const Item: AnsiString; var Value: TPoint3);
begin
  Note(Item, quorvanReadPoint(quorvanItem(FHandle, PAnsiChar(Item)), @Value));
end;

procedure TItemReader.Number(const Item: AnsiString; var Value: Double);
begin
  Note(Item, quorvanReadDouble(quorvanItem(FHandle, PAnsiChar(Item)), Value));
end;

procedure TItemReader.Whole(const Item: AnsiString; var Value: LongInt);
begin
  Note(Item, quorvanReadLong(quorvanItem(FHandle, PAnsiChar(Item)), Value));
end;

procedure TItemReader.Color(const Item: AnsiString; var Value: LongWord);
begin
  Note(Item, quorvanReadColor(quorvanItem(FHandle, PAnsiChar(Item)), Value));
end;

procedure TItemReader.Flag(const Item: AnsiString; var Value: Boolean);
var
  Read: CInt;
begin
  Read := 0;
  Note(Item, quorvanReadFlag(quorvanItem(FHandle, PAnsiChar(Item)), Read));
  Value := Read <> 0;
end;

procedure TItemReader.Text(const Item: AnsiString; var Value: UnicodeString);
var
  Utf8: PAnsiChar;
begin
  Utf8 := '';
  Note(Item, quorvanReadText(quorvanItem(FHandle, PAnsiChar(Item)), Utf8, nil));
  Value := UTF8Decode(RawByteString(Utf8));
end;

function ReadPoints(Item: Pointer; Read: TReadPoints; var Value: TPoints): CInt;
var
  Count: NativeUInt;
begin
  Count := 0;
  Result := Read(Item, nil, 0, Count);
  SetLength(Value, Count);
  if Count > 0 then
    Result := Read(Item, @Value[0], Count, Count);
end;

procedure TItemReader.Points(const Item: AnsiString; var Value: TPoints);
begin
  Note(Item, ReadPoints(quorvanItem(FHandle, PAnsiChar(Item)), quorvanReadPoints, Value));
end;

procedure TItemReader.Segments(const Item: AnsiString; var Value, Bulges: TPoints);
var
  Place: Pointer;
  OfPoints, OfBulges: CInt;
begin
  Place := quorvanItem(FHandle, PAnsiChar(Item));
  OfPoints := ReadPoints(Place, quorvanReadPoints, Value);
  OfBulges := ReadPoints(Place, quorvanReadBulges, Bulges);
  if OfPoints <> 0 then
    Note(Item, OfPoints)
  else
    Note(Item, OfBulges);
end;

procedure TItemReader.Numbers(const Item: AnsiString; var Value: TNumbers);
var
  Place: Pointer;
  Count: NativeUInt;
  Done: CInt;
begin
  Place := quorvanItem(FHandle, PAnsiChar(Item));
  Count := 0;
  Done := quorvanReadDoubles(Place, nil, 0, Count);
  SetLength(Value, Count);
  if Count > 0 then
    Done := quorvanReadDoubles(Place, @Value[0], Count, Count);
  Note(Item, Done);
end;

function ReadElement(Handle: Pointer): TElement;
var
  Reader: TItemReader;
  Name: AnsiString;
begin
  Name := AnsiString(quorvanElementClass(Handle));
  Result := ElementClassOf(Name).Create;
  Result.NameOfClass := Name;
  Result.Version := quorvanElementVersion(Handle);
  Result.Index := quorvanElementIndex(Handle);
  Reader := TItemReader.Create(Handle, Result);
  try
    Result.Visit(Reader);
  finally
    Reader.Free;
  end;
end;

constructor TDrawing.Read(const Path: UnicodeString);
var
  Opened: Pointer;
  WidePath: WideText;
begin
  inherited Create;
  WidePath := Wide(Path);
  Check(quorvanOpenFile(PWideText(WidePath), Opened));
  Take(Opened);
end;

constructor TDrawing.ReadBytes(Bytes: Pointer; Size: NativeUInt);
var
  Opened: Pointer;
begin
  inherited Create;
  Check(quorvanOpenMemory(Bytes, Size, Opened));
  Take(Opened);
end;

procedure TDrawing.Take(Opened: Pointer);
var
  Handle: Pointer;
  Next: CInt;
begin
  try
    Handle := nil;
    Next := quorvanNextElement(Opened, nil, Handle);
    while Next = 0 do
    begin
      SetLength(FElements, Length(FElements) + 1);
      FElements[High(FElements)] := ReadElement(Handle);
      Next := quorvanNextElement(Opened, nil, Handle);
    end;
    if Next <> NoMore then
      Check(Next);
  finally
    quorvanCloseFile(Opened);
  end;
end;

destructor TDrawing.Destroy;
var
  Place: Integer;
begin
  for Place := 0 to High(FElements) do
    FElements[Place].Free;
  inherited Destroy;
end;

function TDrawing.GetElement(Place: Integer): TElement;
begin
  Result := FElements[Place];
end;

function TDrawing.Count: Integer;
begin
  Result := Length(FElements);
end;

function TDrawing.BarCount: Integer;
var
  Place: Integer;
begin
  Result := 0;
  for Place := 0 to High(FElements) do
    if FElements[Place] is TBar then
      Inc(Result);
end;

function TDrawing.BarOf(Series: TRepartition): TElement;
var
  Place: Integer;
begin
  Result := nil;
  for Place := High(FElements) downto 0 do
    if (FElements[Place].NameOfClass = AnsiString(Series.DefClassName)) and
      (FElements[Place].Index = Series.BarIndex) then
      Result := FElements[Place];
end;

function TDrawing.Control: TDrawingControl;
var
  Place: Integer;
begin
  Result := nil;
  for Place := 0 to High(FElements) do
    if FElements[Place] is TDrawingControl then
      Result := TDrawingControl(FElements[Place]);
end;

end.
