#include "scenario/argument_types.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "controls/menu.h"
#include "scenario/literals.h"
#include "scenario/parse_error.h"

namespace plimo::scenario {

namespace {

bool oneOf(std::string_view choices, std::string_view word) {
  const auto pieces = split(choices, '|');
  return std::find(pieces.begin(), pieces.end(), word) != pieces.end();
}

bool isKind(const ControlNames& names, std::string_view word, std::initializer_list<ControlKind> kinds) {
  const Control* control = names.find(word);
  return control != nullptr && std::find(kinds.begin(), kinds.end(), control->kind()) != kinds.end();
}

bool isPopUpMenu(const ControlNames& names, std::string_view word) {
  return isKind(names, word, {ControlKind::menu}) &&
         static_cast<const Menu*>(names.find(word))->role() == Menu::Role::popUp;
}

bool isRow(std::string_view word) { return parseInteger(word).value_or(-1) >= 0; }

// One character, however many bytes it takes.
bool isCharacter(std::string_view word) {
  if (word.empty()) return false;
  return std::all_of(word.begin() + 1, word.end(),
                     [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; });
}

struct ArgumentType {
  std::string_view name;
  std::string_view description;
  bool (*accepts)(const ControlNames& names, std::string_view word);
};

using Names = const ControlNames&;
using Word = std::string_view;

constexpr std::array argumentTypes{
    ArgumentType{"TEXT", "a text", [](Names, Word) { return true; }},
    ArgumentType{"PATH", "a path", [](Names, Word word) { return !word.empty(); }},
    ArgumentType{"LETTER", "a drive letter",
                 [](Names, Word word) {
                   const std::string upper = upperAscii(word);
                   return upper.size() == 1 && upper[0] >= 'A' && upper[0] <= 'Z';
                 }},
    ArgumentType{"COUNT", "a whole number from 0", [](Names, Word word) { return isRow(word); }},
    ArgumentType{"WHOLE", "a whole number", [](Names, Word word) { return parseInteger(word).has_value(); }},
    ArgumentType{"NUMBER", "a number", [](Names, Word word) { return parseDecimal(word).has_value(); }},
    ArgumentType{"MEASURE", "a number from 0", [](Names, Word word) { return parseDecimal(word).value_or(-1) >= 0; }},
    ArgumentType{"CONTROL", "the name of a control",
                 [](Names names, Word word) { return names.find(word) != nullptr; }},
    ArgumentType{"FORM1", "Form1", [](Names, Word word) { return word == mainWindowName; }},
    ArgumentType{"FORM1OR", "the name of a control, or Form1",
                 [](Names names, Word word) { return word == mainWindowName || names.find(word) != nullptr; }},
    ArgumentType{"WINDOWOR", "the name of a control or a window",
                 [](Names names, Word word) {
                   return word == mainWindowName || word == splashName || names.find(word) != nullptr;
                 }},
    ArgumentType{"LIST", "the name of a list",
                 [](Names names, Word word) { return isKind(names, word, {ControlKind::listBox}); }},
    ArgumentType{"CHECKLIST", "the name of a check-box list",
                 [](Names names, Word word) {
                   return isKind(names, word, {ControlKind::listBox}) &&
                          static_cast<const ListBox*>(names.find(word))->style() == ListBox::Style::checkBoxes;
                 }},
    ArgumentType{"TIMER", "the name of a timer",
                 [](Names names, Word word) { return isKind(names, word, {ControlKind::timer}); }},
    ArgumentType{"SLIDER", "the name of a slider",
                 [](Names names, Word word) { return isKind(names, word, {ControlKind::slider}); }},
    ArgumentType{"CHOOSER", "the name of a drive or folder list",
                 [](Names names, Word word) {
                   return isKind(names, word, {ControlKind::driveList, ControlKind::folderList});
                 }},
    ArgumentType{"BOX", "the name of a check box or an option button",
                 [](Names names, Word word) {
                   return isKind(names, word, {ControlKind::checkBox, ControlKind::optionButton});
                 }},
    ArgumentType{"CLICKABLE", "the name of a button, picture, menu item, check box or option button",
                 [](Names names, Word word) {
                   return isKind(names, word,
                                 {ControlKind::commandButton, ControlKind::picture, ControlKind::menu,
                                  ControlKind::checkBox, ControlKind::optionButton});
                 }},
    ArgumentType{"POPUP", "the name of a pop-up menu", isPopUpMenu},
    ArgumentType{"KEY", "one character, or enter, esc, space, backspace or tab",
                 [](Names, Word word) { return oneOf("enter|esc|space|backspace|tab", word) || isCharacter(word); }},
};

constexpr std::string_view alternative = " / ";

struct Parameter {
  std::string_view type;  // the name of an argument type, or keywords
  char repeat = ' ';      // or ?, * or +
};

std::vector<Parameter> parametersOf(std::string_view signature) {
  std::vector<Parameter> parameters;
  if (signature.empty()) return parameters;
  for (const std::string_view piece : split(signature, ' ')) {
    const char last = piece.back();
    const bool repeated = last == '?' || last == '*' || last == '+';
    parameters.push_back({repeated ? piece.substr(0, piece.size() - 1) : piece, repeated ? last : ' '});
  }
  return parameters;
}

// Null for keywords.
const ArgumentType* findType(std::string_view name) {
  const auto found = std::find_if(argumentTypes.begin(), argumentTypes.end(),
                                  [name](const ArgumentType& type) { return type.name == name; });
  return found == argumentTypes.end() ? nullptr : &*found;
}

std::string descriptionOf(std::string_view parameterType) {
  if (const ArgumentType* type = findType(parameterType)) return std::string(type->description);
  std::string text;
  for (const std::string_view keyword : split(parameterType, '|')) {
    text.append(text.empty() ? "" : " or ").append(keyword);
  }
  return text;
}

class Matcher {
 public:
  Matcher(const std::vector<std::string>& arguments, const ControlNames& names)
      : arguments_(arguments), names_(names) {}

  bool matches(std::string_view signature) {
    parameters_ = parametersOf(signature);
    return matchesFrom(0, 0);
  }

  // The index of the furthest argument that did not match, and what was expected there.
  std::size_t furthest() const { return furthest_; }
  const std::string& expected() const { return expected_; }

 private:
  bool matchesFrom(std::size_t parameter, std::size_t argument) {
    if (parameter == parameters_.size()) {
      if (argument == arguments_.size()) return true;
      noteMismatch(argument, "nothing more");
      return false;
    }
    const auto [type, repeat] = parameters_[parameter];
    const bool optional = repeat == '?' || repeat == '*';
    const std::size_t most = repeat == '*' || repeat == '+' ? arguments_.size() - argument : 1;
    std::size_t taken = 0;
    while (taken < most && accepts(type, argument + taken)) ++taken;
    if (taken > 0 && matchesFrom(parameter + 1, argument + taken)) return true;
    return optional && matchesFrom(parameter + 1, argument);
  }

  bool accepts(std::string_view parameterType, std::size_t argument) {
    if (argument < arguments_.size()) {
      const std::string& word = arguments_[argument];
      const ArgumentType* type = findType(parameterType);
      if (type != nullptr ? type->accepts(names_, word) : oneOf(parameterType, word)) return true;
    }
    noteMismatch(argument, descriptionOf(parameterType));
    return false;
  }

  void noteMismatch(std::size_t argument, const std::string& expected) {
    if (argument < furthest_) return;
    if (argument > furthest_ || expected_.empty()) {
      expected_ = expected;
    } else if (expected != "nothing more" && expected_.find(expected) == std::string::npos) {
      expected_ += ", or " + expected;
    }
    furthest_ = argument;
  }

  std::vector<Parameter> parameters_;
  const std::vector<std::string>& arguments_;
  const ControlNames& names_;
  std::size_t furthest_ = 0;
  std::string expected_;
};

}  // namespace

void checkArguments(std::string_view command, std::string_view signature, const std::vector<std::string>& arguments,
                    const ControlNames& names) {
  Matcher matcher(arguments, names);
  while (true) {
    const std::size_t end = signature.find(alternative);
    if (matcher.matches(signature.substr(0, end))) return;
    if (end == std::string_view::npos) break;
    signature.remove_prefix(end + alternative.size());
  }
  if (matcher.furthest() < arguments.size()) {
    throw ParseError{arguments[matcher.furthest()], "expected here: " + matcher.expected()};
  }
  throw ParseError{arguments.empty() ? std::string(command) : arguments.back(),
                   "expected after it: " + matcher.expected()};
}

}  // namespace plimo::scenario
