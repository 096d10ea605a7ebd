#include "tarvola/runtime/number_format.h"

#include <algorithm>

#include "tarvola/runtime/decimal_digits.h"
#include "tarvola/runtime/format_pattern.h"
#include "tarvola/runtime/regional_settings.h"

namespace tarvola {
namespace {

using Kind = PatternElement::Kind;

/// What a section asks for, counted before anything is printed.
struct SectionShape {
  int wholePlaces = 0;
  /// Digits of the whole part that are printed even where they are leading zeros.
  int forcedWhole = 0;
  int decimals = 0;
  int forcedDecimals = 0;
  /// Commas behind the last whole digit: each divides by a thousand.
  int thousandsCut = 0;
  int percents = 0;
  bool grouped = false;
  bool hasPoint = false;

  void countDigit(bool forced) noexcept {
    if (hasPoint) {
      ++decimals;
      if (forced) forcedDecimals = decimals;
      return;
    }
    // A comma with digits on both sides groups; it is no cut then.
    grouped = grouped || thousandsCut > 0;
    thousandsCut = 0;
    ++wholePlaces;
    if (forced || forcedWhole > 0) ++forcedWhole;
  }

  void countComma() noexcept {
    if (!hasPoint && wholePlaces > 0) ++thousandsCut;
  }
};

SectionShape shapeOf(std::string_view section) noexcept {
  SectionShape shape;
  NumberPatternReader reader(section);
  PatternElement element{};
  while (reader.next(element)) {
    switch (element.kind) {
      case Kind::ForcedDigit:
      case Kind::OptionalDigit:
        shape.countDigit(element.kind == Kind::ForcedDigit);
        break;
      case Kind::Point:
        shape.hasPoint = true;
        break;
      case Kind::Comma:
        shape.countComma();
        break;
      case Kind::Percent:
        ++shape.percents;
        break;
      case Kind::SectionEnd:
      case Kind::Literal:
        break;
    }
  }
  return shape;
}

/// Prints a number that is rounded already into the places of a section.
class SectionWriter {
 public:
  SectionWriter(std::string& out, const SectionShape& shape, const DecimalDigits& number) noexcept
      : out_(out), shape_(shape), number_(number), settings_(regionalSettings()) {
    wholeLeft_ = std::max(shape.forcedWhole, std::max(number.point, 0));
    placesLeft_ = shape.wholePlaces;
    fractionLength_ = std::max(shape.forcedDecimals, number.count - number.point);
  }

  void write(const PatternElement& element) {
    switch (element.kind) {
      case Kind::ForcedDigit:
      case Kind::OptionalDigit:
        writePlace();
        break;
      case Kind::Point:
        writePoint();
        break;
      case Kind::Comma:
        break;
      case Kind::Percent:
      case Kind::SectionEnd:
      case Kind::Literal:
        out_ += element.text;
        break;
    }
  }

 private:
  void writePlace() {
    if (behindPoint_) {
      if (decimalsDone_ < fractionLength_) out_ += number_.digitAt(-++decimalsDone_);
      return;
    }
    // The first place prints all digits that the pattern has no places for: a figure is never cut.
    --placesLeft_;
    writeWholeDownTo(placesLeft_);
  }

  void writeWholeDownTo(int place) {
    while (wholeLeft_ > place) {
      --wholeLeft_;
      out_ += number_.digitAt(wholeLeft_);
      if (shape_.grouped && wholeLeft_ > 0 && wholeLeft_ % 3 == 0) out_ += settings_.thousands;
    }
  }

  void writePoint() {
    // Only the first point is the decimal sign.
    if (behindPoint_) return;
    writeWholeDownTo(0);
    behindPoint_ = true;
    out_ += settings_.decimal;
  }

  std::string& out_;
  const SectionShape& shape_;
  const DecimalDigits& number_;
  const RegionalSettings& settings_;
  int wholeLeft_;
  int placesLeft_;
  int fractionLength_;
  int decimalsDone_ = 0;
  bool behindPoint_ = false;
};

void appendSection(std::string& out, DecimalDigits number, std::string_view section) {
  const SectionShape shape = shapeOf(section);
  if (number.count > 0) number.point += 2 * shape.percents - 3 * shape.thousandsCut;
  number.roundToDecimals(shape.decimals);
  SectionWriter writer(out, shape, number);
  NumberPatternReader reader(section);
  PatternElement element{};
  while (reader.next(element)) writer.write(element);
}

}  // namespace

std::string formatNumber(double value, std::string_view pattern) {
  const DecimalDigits number = decimalDigits(value);
  const PatternSections sections = sectionsOf(pattern);
  std::string out;
  if (number.negative && sections.has(1)) {
    // A section of its own for negative numbers brings its own sign.
    appendSection(out, number, sections.sections[1]);
  } else if (number.count == 0 && sections.has(2)) {
    appendSection(out, number, sections.sections[2]);
  } else {
    if (number.negative) out += '-';
    appendSection(out, number, sections.sections[0]);
  }
  return out;
}

std::string formatNull(std::string_view pattern) {
  std::string out;
  const PatternSections sections = sectionsOf(pattern);
  if (sections.has(3)) appendSection(out, DecimalDigits{}, sections.sections[3]);
  return out;
}

}  // namespace tarvola
