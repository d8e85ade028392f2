#include "settings/untyped_value.h"

#include <cmath>

#include "base/errors.h"
#include "base/text.h"

namespace plimo {

bool UntypedValue::equals(int number) const {
  double value = 0;
  return parseNumber(text_, value) && value == number;
}

bool UntypedValue::isTrue() const { return Field{text_, form_}.isTrue(); }

Colour UntypedValue::colour(const std::string& path) const {
  if (text_.empty()) return 0;
  double value = 0;
  if (!parseNumber(text_, value)) throw RuntimeError(ErrorNumber::typeMismatch, path);
  return toColour(value, path);
}

void UntypedValue::appendTo(std::string& file) const {
  double number = 0;
  const bool bare =
      form_ == Field::Form::bare && (text_.empty() || Field{text_, form_}.hashFramed() || parseNumber(text_, number));
  if (bare) {
    file.append(trimBlanks(text_)).append("\r\n");
  } else {
    writeText(file, text_);
  }
}

Colour toColour(double number, const std::string& path) {
  if (number < 0 || number > whiteColour) throw RuntimeError(ErrorNumber::overflow, path);
  return static_cast<Colour>(std::nearbyint(number));
}

}  // namespace plimo
