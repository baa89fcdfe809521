{ The flat functions, as <quorvan/export/checked.h> and <quorvan/reading/read.h> declare them, for Delphi
  and for Free Pascal in its Delphi mode.

  They return 0 or the number of an error; Check raises EQuorvan for it. Texts are wide: UTF-16 on
  Windows, UTF-32 elsewhere, as Wide makes them. A C "long" has 32 bits on Windows and those of a
  pointer elsewhere; a flag is a byte, and any but 0 is yes. }
unit Quorvan;

{$ifdef FPC}{$mode delphi}{$endif}

interface

uses
  SysUtils;

const
  BadSeries = 16;
  NoMore = 40;
  NoItem = 41;
  OtherKind = 42;
  Incomplete = 43;

type
  CInt = LongInt;
  CFlag = Byte;
{$ifdef MSWINDOWS}
  CLong = LongInt;
  CULong = LongWord;
  WideText = UnicodeString;
  PWideText = PWideChar;
{$else}
  CLong = NativeInt;
  CULong = NativeUInt;
  WideText = UCS4String;
  PWideText = PUCS4Char;
{$endif}

  EQuorvan = class(Exception)
  public
    Number, Line, Column: Integer;
    constructor CreateOf(ANumber: Integer);
  end;

procedure Check(AResult: CInt);
function Wide(const AText: UnicodeString): WideText;

const
{$ifdef MSWINDOWS}
  QuorvanLibrary = 'quorvan.dll';
{$else}
  QuorvanLibrary = 'quorvan';
{$endif}

{ Writing. }
function startFilingChecked(path: PWideText): CInt; cdecl; external QuorvanLibrary;
function stopFilingChecked: CInt; cdecl; external QuorvanLibrary;
function endFilingChecked(zantoVersion: PWideText; servicePack: CLong; drawingName: PWideText;
  checkSum: CInt): CInt; cdecl; external QuorvanLibrary;
function exportDrawingControlChecked(zantoVersion: PWideText; servicePack, checkSum: CLong;
  drawingName: PWideText): CInt; cdecl; external QuorvanLibrary;
function exportLineChecked(x1, y1, z1, x2, y2, z2: Double; color: CULong): CInt; cdecl; external
  QuorvanLibrary;
function exportCircleChecked(x, y, z, radius: Double; color: CULong): CInt; cdecl; external
  QuorvanLibrary;
function exportTextChecked(contents: PWideText; x, y, z, angle: Double; color: CULong;
  justificationX, justificationY: CInt; height: Double): CInt; cdecl; external QuorvanLibrary;
function exportMeshChecked(reference, kind: PWideText; extensionX, extensionY, angle: Double; count:
  CInt; xs, ys, zs: PDouble): CInt; cdecl; external QuorvanLibrary;
function exportFilledPolygonChecked(count: CInt; xs, ys, zs: PDouble; color: CULong): CInt; cdecl;
  external QuorvanLibrary;
function exportFormworkChecked(count: CInt; xs, ys, zs, bxs, bys, bzs: PDouble): CInt; cdecl;
  external QuorvanLibrary;
function exportBarStraightChecked(x1, y1, z1, x2, y2, z2, hookLength1, hookLength2: Double; hook1Up,
  hook2Up: CFlag; hookAngle1, hookAngle2: Double; steelGrade, adherence: PWideText; reference:
  CLong; diameter: Double; hidden: CFlag): CInt; cdecl; external QuorvanLibrary;
function exportBarPolygonChecked(count: CInt; xs, ys, zs: PDouble; hookLength1, hookLength2: Double;
  side: CFlag; hookAngle1, hookAngle2: Double; steelGrade, adherence: PWideText; reference: CLong;
  diameter: Double; hidden: CFlag): CInt; cdecl; external QuorvanLibrary;
function exportLBarChecked(x1, y1, z1, x2, y2, z2, x3, y3, z3, hookLength1, hookAngle1, hookLength2,
  hookAngle2: Double; steelGrade, adherence: PWideText; reference: CLong; diameter: Double; hidden:
  CFlag): CInt; cdecl; external QuorvanLibrary;
function exportUBarChecked(x1, y1, z1, x2, y2, z2, x3, y3, z3, hookLength1, hookAngle1, hookLength2,
  hookAngle2: Double; steelGrade, adherence: PWideText; reference: CLong; diameter: Double; hidden:
  CFlag): CInt; cdecl; external QuorvanLibrary;
function exportPinChecked(x1, y1, z1, x2, y2, z2, hookLength1, hookLength2, hookAngle1, hookAngle2:
  Double; steelGrade, adherence: PWideText; reference: CLong; diameter: Double; hidden: CFlag):
  CInt; cdecl; external QuorvanLibrary;
function exportPointBarChecked(x, y, z: Double; steelGrade, adherence: PWideText; reference: CLong;
  diameter: Double; hidden: CFlag): CInt; cdecl; external QuorvanLibrary;
function exportStirrupChecked(x1, y1, z1, x2, y2, z2, hookLength1, hookAngle1: Double; steelGrade,
  adherence: PWideText; reference: CLong; diameter: Double; hidden: CFlag): CInt; cdecl; external
  QuorvanLibrary;
function exportFrameRectChecked(x1, y1, z1, x2, y2, z2, x3, y3, z3, hookLength1, hookAngle1: Double;
  steelGrade, adherence: PWideText; reference: CLong; diameter: Double; hidden: CFlag): CInt; cdecl;
  external QuorvanLibrary;
function exportFrameCircChecked(centerX, centerY, centerZ, startX, startY, startZ, frameRadius,
  recoverLength, hookLength1, hookAngle1: Double; steelGrade, adherence: PWideText; reference:
  CLong; diameter: Double; hidden: CFlag): CInt; cdecl; external QuorvanLibrary;
function pushRepartitionFrameRectChecked(value1, value2, value3, value4, value5, value6: Double;
  className: PWideText; hookLength1, hookAngle1: Double; steelGrade, adherence: PWideText;
  reference: CLong; diameter: Double; hidden: CFlag; keyC: CLong; viewPoint, lastInt: CInt): CInt;
  cdecl; external QuorvanLibrary;
function quorvanAbandonFiling: CInt; cdecl; external QuorvanLibrary;

{ Reading. }
function quorvanOpenFile(path: PWideText; out opened: Pointer): CInt; cdecl; external QuorvanLibrary;
function quorvanOpenMemory(bytes: Pointer; size: NativeUInt; out opened: Pointer): CInt; cdecl;
  external QuorvanLibrary;
procedure quorvanCloseFile(opened: Pointer); cdecl; external QuorvanLibrary;
function quorvanNextElement(opened: Pointer; className: PAnsiChar; var element: Pointer): CInt; cdecl;
  external QuorvanLibrary;
function quorvanElementClass(element: Pointer): PAnsiChar; cdecl; external QuorvanLibrary;
function quorvanElementVersion(element: Pointer): LongInt; cdecl; external QuorvanLibrary;
function quorvanElementIndex(element: Pointer): LongInt; cdecl; external QuorvanLibrary;
function quorvanElementClassNumber(element: Pointer): CInt; cdecl; external QuorvanLibrary;
function quorvanItem(element: Pointer; name: PAnsiChar): Pointer; cdecl; external QuorvanLibrary;
function quorvanReadLong(item: Pointer; var value: LongInt): CInt; cdecl; external QuorvanLibrary;
function quorvanReadColor(item: Pointer; var value: LongWord): CInt; cdecl; external QuorvanLibrary;
function quorvanReadDouble(item: Pointer; var value: Double): CInt; cdecl; external QuorvanLibrary;
function quorvanReadFlag(item: Pointer; var value: CInt): CInt; cdecl; external QuorvanLibrary;
function quorvanReadText(item: Pointer; var text: PAnsiChar; length: Pointer): CInt; cdecl;
  external QuorvanLibrary;
function quorvanReadPoint(item: Pointer; xyz: Pointer): CInt; cdecl; external QuorvanLibrary;
function quorvanReadPoints(item: Pointer; xyz: Pointer; room: NativeUInt; var count: NativeUInt): CInt;
  cdecl; external QuorvanLibrary;
function quorvanReadBulges(item: Pointer; xyz: Pointer; room: NativeUInt; var count: NativeUInt): CInt;
  cdecl; external QuorvanLibrary;
function quorvanReadDoubles(item: Pointer; values: Pointer; room: NativeUInt;
  var count: NativeUInt): CInt; cdecl; external QuorvanLibrary;
function quorvanClassItemCount(number: CInt): CInt; cdecl; external QuorvanLibrary;
function quorvanClassItemName(number, item: CInt): PAnsiChar; cdecl; external QuorvanLibrary;
function quorvanClassItemIsOptional(number, item: CInt): CInt; cdecl; external QuorvanLibrary;

{ The last error. }
function quorvanLastErrorText: PAnsiChar; cdecl; external QuorvanLibrary;
function quorvanLastErrorLine: CInt; cdecl; external QuorvanLibrary;
function quorvanLastErrorColumn: CInt; cdecl; external QuorvanLibrary;

implementation

constructor EQuorvan.CreateOf(ANumber: Integer);
begin
  inherited Create('error ' + IntToStr(ANumber) + ': ' + string(AnsiString(quorvanLastErrorText)));
  Number := ANumber;
  Line := quorvanLastErrorLine;
  Column := quorvanLastErrorColumn;
end;

procedure Check(AResult: CInt);
begin
  if AResult <> 0 then
    raise EQuorvan.CreateOf(AResult);
end;

function Wide(const AText: UnicodeString): WideText;
begin
{$ifdef MSWINDOWS}
  Result := AText;
{$else}
  Result := UnicodeStringToUCS4String(AText);
{$endif}
end;

end.
