{ The flat functions that a host uses, as <quorvan/export/checked.h> declares them, for Delphi and for
  Free Pascal in its Delphi mode.

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
    Number: Integer;
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

function startFilingChecked(path: PWideText): CInt; cdecl; external QuorvanLibrary;
function stopFilingChecked: CInt; cdecl; external QuorvanLibrary;
function endFilingChecked(version: PWideText; servicePack: CLong; drawing: PWideText;
  checkSum: CInt): CInt; cdecl; external QuorvanLibrary;
function exportFormworkChecked(count: CInt; xs, ys, zs, bulgeXs, bulgeYs, bulgeZs: PDouble): CInt;
  cdecl; external QuorvanLibrary;
function exportTextChecked(contents: PWideText; x, y, z, angle: Double; color: CULong;
  justificationX, justificationY: CInt; height: Double): CInt; cdecl; external QuorvanLibrary;
function exportBarStraightChecked(x1, y1, z1, x2, y2, z2, hookLength1, hookLength2: Double;
  hook1Up, hook2Up: CFlag; hookAngle1, hookAngle2: Double; steelGrade, adherence: PWideText;
  reference: CLong; diameter: Double; hidden: CFlag): CInt; cdecl; external QuorvanLibrary;
function exportFrameRectChecked(x1, y1, z1, x2, y2, z2, x3, y3, z3, hookLength,
  hookAngle: Double; steelGrade, adherence: PWideText; reference: CLong; diameter: Double;
  hidden: CFlag): CInt; cdecl; external QuorvanLibrary;
function pushRepartitionFrameRectChecked(x1, y1, z1, x2, y2, z2: Double; className: PWideText;
  hookLength, hookAngle: Double; steelGrade, adherence: PWideText; reference: CLong;
  diameter: Double; hidden: CFlag; key: CLong; viewPoint, last: CInt): CInt; cdecl;
  external QuorvanLibrary;
function quorvanLastErrorText: PAnsiChar; cdecl; external QuorvanLibrary;

implementation

constructor EQuorvan.CreateOf(ANumber: Integer);
begin
  inherited Create('error ' + IntToStr(ANumber) + ': ' + string(AnsiString(quorvanLastErrorText)));
  Number := ANumber;
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
