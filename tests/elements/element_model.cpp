#include <tests/elements/element_model.h>

#include <cstdint>

#include <tests/support/transfer_text.h>

namespace quorvan::test {

namespace {

std::string segmentEntries(const Segments& segments) {
  std::string entries;
  for (std::size_t k = 0; k < segments.bulges.size(); ++k) {
    const auto number = static_cast<long long>(k);
    entries += pointItem(numbered("Point", 2 * number + 1), segments.points[2 * k]);
    entries += pointItem(numbered("Point", 2 * number + 2), segments.points[2 * k + 1]);
    entries += vectorItem(numbered("Bulge", number + 1), segments.bulges[k]);
  }
  return entries;
}

// Seven decimals and the shortest digits of these are short.
CKtPnt3D samplePoint(int number) {
  return {number + 0.5, -number - 0.25, 1000.0 * number};
}

CKtVect3D sampleVector(int number) {
  return {-number - 0.125, number + 0.5, 10.0 * number + 3};
}

Segments sampleSegments(int number) {
  Segments segments;
  for (int k = 0; k < 2; ++k) {
    segments.points.push_back(samplePoint(number + 100 * k));
    segments.points.push_back(samplePoint(number + 100 * k + 50));
    segments.bulges.push_back(sampleVector(number + 200 * k));
  }
  return segments;
}

CString sampleText(int number) {
  return CString(L"caf\u00e9 \u00f8 \u20ac ") + CString(std::to_wstring(number).c_str());
}

long long sizeOf(std::size_t entries) {
  return static_cast<long long>(entries);
}

template <class Type>
const Type& as(const Value& value) {
  return std::get<Type>(value);
}

std::string listText(Form form, const std::string& name, const std::string& stem,
                     const Value& value) {
  if (form == Form::kPoints) {
    const auto& points = as<std::vector<CKtPnt3D>>(value);
    return listItem(name, sizeOf(points.size()), pointEntries(stem, points));
  }
  if (form == Form::kSegments) {
    const auto& segments = as<Segments>(value);
    return listItem(name, sizeOf(segments.points.size()), segmentEntries(segments));
  }
  if (form == Form::kDoubles) {
    const auto& values = as<std::vector<double>>(value);
    return listItem(name, sizeOf(values.size()), doubleEntries(stem, values));
  }
  const auto& points = as<std::vector<CKtPnt3D>>(value);
  return longItem(name, static_cast<long>(points.size())) + pointEntries(stem, points);
}

}  // namespace

std::string itemText(Form form, const std::string& name, const std::string& stem,
                     const Value& value) {
  switch (form) {
    case Form::kPoint:
      return pointItem(name, as<CKtPnt3D>(value));
    case Form::kVector:
      return vectorItem(name, as<CKtVect3D>(value));
    case Form::kDouble:
      return doubleItem(name, as<double>(value));
    case Form::kLong:
      return longItem(name, as<long>(value));
    case Form::kColor:
      return longItem(name, static_cast<std::int32_t>(as<unsigned long>(value)));
    case Form::kText:
    case Form::kAdherence:
      return textItem(name, as<CString>(value).view());
    case Form::kFlag:
      return flagItem(name, as<bool>(value));
    case Form::kSide:
      return longItem(name, as<bool>(value) ? 1 : 0);
    default:
      return listText(form, name, stem, value);
  }
}

Value sampleValue(Form form, int number) {
  switch (form) {
    case Form::kPoint:
      return samplePoint(number);
    case Form::kVector:
      return sampleVector(number);
    case Form::kDouble:
      return number + 0.0625;
    case Form::kLong:
      return 100L + number;
    case Form::kColor:
      return 0xFF000000UL + static_cast<unsigned long>(number);
    case Form::kText:
    case Form::kAdherence:
      return sampleText(number);
    case Form::kFlag:
    case Form::kSide:
      return number % 2 == 0;
    case Form::kSegments:
      return sampleSegments(number);
    case Form::kDoubles:
      return std::vector<double>{number + 0.25, -1.5 * number, 7.0};
    case Form::kPoints:
    case Form::kNumberedPoints:
      break;
  }
  return std::vector<CKtPnt3D>{samplePoint(number), samplePoint(number + 1), samplePoint(number)};
}

Value defaultValue(Form form) {
  switch (form) {
    case Form::kPoint:
      return CKtPnt3D(0, 0, 0);
    case Form::kVector:
      return CKtVect3D(0, 0, 0);
    case Form::kDouble:
      return 0.0;
    case Form::kLong:
      return 0L;
    case Form::kColor:
      return 0UL;
    case Form::kText:
    case Form::kAdherence:
      return CString();
    case Form::kFlag:
    case Form::kSide:
      return false;
    case Form::kSegments:
      return Segments();
    case Form::kDoubles:
      return std::vector<double>();
    case Form::kPoints:
    case Form::kNumberedPoints:
      break;
  }
  return std::vector<CKtPnt3D>();
}

long bufferedNumber(const Value& value) {
  if (std::holds_alternative<unsigned long>(value)) {
    return static_cast<std::int32_t>(as<unsigned long>(value));
  }
  return as<long>(value);
}

std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) {
    all += text;
  }
  return all;
}

}  // namespace quorvan::test
