// LOGFONTW: the description of a font that the transform interface passes through.
#pragma once

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <cstdint>

/// The description of a font with the fields and names that Windows gives it.
struct LOGFONTW {
  /// Sizes in logical units, angles in tenths of a degree, the weight from 0 to 1000; the rest are
  /// the flags and codes of Windows, which nothing here looks at.
  std::int32_t lfHeight;
  std::int32_t lfWidth;
  std::int32_t lfEscapement;
  std::int32_t lfOrientation;
  std::int32_t lfWeight;
  std::uint8_t lfItalic;
  std::uint8_t lfUnderline;
  std::uint8_t lfStrikeOut;
  std::uint8_t lfCharSet;
  std::uint8_t lfOutPrecision;
  std::uint8_t lfClipPrecision;
  std::uint8_t lfQuality;
  std::uint8_t lfPitchAndFamily;
  wchar_t lfFaceName[32];
};
#endif
