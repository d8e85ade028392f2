// A value of the settings file whose type is only decided when it is used.
#pragma once

#include <string>

#include "base/colour.h"
#include "base/quoted_format.h"

namespace plimo {

class UntypedValue {
 public:
  UntypedValue() = default;
  explicit UntypedValue(const Field& field) : text_(field.text), form_(field.form) {}

  // True for a number equal to this one.
  bool equals(int number) const;
  // True for #TRUE#.
  bool isTrue() const;
  // A colour number, 0 to 16777215; an empty value is 0. Throws RuntimeError 13 if it is no number, 6 if it is out of
  // range; `path` is the file named in the error.
  Colour colour(const std::string& path) const;
  // Appends the value and its line end in the form in which it was read: nothing, a truth value and a number bare,
  // anything else as a quoted text.
  void appendTo(std::string& file) const;

 private:
  std::string text_;
  Field::Form form_ = Field::Form::bare;
};

// Throws RuntimeError 6 if the number is no colour.
Colour toColour(double number, const std::string& path);

}  // namespace plimo
