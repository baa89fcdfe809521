// The text of transfer files, put together here number by number and independently of the
// library: the bytes that a test expects to be saved, and files that a test wants to be read.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <quorvan/geometry/point.h>
#include <quorvan/geometry/vector.h>

namespace quorvan::test {

/// A whole file with these class elements below its root element.
std::string transferFile(const std::string& elements);

/// One class element with these items; version 1.
std::string classElement(std::string_view className, int index, const std::string& items);

std::string pointItem(std::string_view name, const CKtPnt3D& point);
/// For components whose shortest text "%g" gives.
std::string vectorItem(std::string_view name, const CKtVect3D& vector);
std::string doubleItem(std::string_view name, double value);
std::string longItem(std::string_view name, long value);
std::string textItem(std::string_view name, std::wstring_view value);
std::string flagItem(std::string_view name, bool value);

/// A list scope with that "size" around its entries.
std::string listItem(std::string_view name, long long size, const std::string& entries);

/// The items `stem`1, `stem`2 and so on of a list.
std::string pointEntries(std::string_view stem, const std::vector<CKtPnt3D>& points);
std::string doubleEntries(std::string_view stem, const std::vector<double>& values);

/// An item as it stands, for the attributes that are wrong on purpose: `name attributes` in an
/// empty element.
std::string rawItem(std::string_view name, std::string_view attributes);

/// `stem` followed by the number, as the names of entries are made.
std::string numbered(std::string_view stem, long long number);

/// Seven decimals.
std::string fixed7(double value);

/// Replaces the file's content.
void writeBytes(const std::filesystem::path& path, const std::string& bytes);

}  // namespace quorvan::test
