#include "scenario/slots.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "controls/menu.h"
#include "scenario/words.h"

namespace plimo::scenario {

namespace {

bool oneOf(std::string_view choices, std::string_view word) {
  const auto pieces = split(choices, '|');
  return std::find(pieces.begin(), pieces.end(), word) != pieces.end();
}

bool isKind(const Vocabulary& names, std::string_view word, std::initializer_list<ControlKind> kinds) {
  const Control* control = names.find(word);
  return control != nullptr && std::find(kinds.begin(), kinds.end(), control->kind()) != kinds.end();
}

bool isPopUpMenu(const Vocabulary& names, std::string_view word) {
  return isKind(names, word, {ControlKind::menu}) &&
         static_cast<const Menu*>(names.find(word))->role() == Menu::Role::popUp;
}

bool isRow(std::string_view word) { return wholeNumber(word).value_or(-1) >= 0; }

// One character, however many bytes it takes.
bool isCharacter(std::string_view word) {
  if (word.empty()) return false;
  return std::all_of(word.begin() + 1, word.end(),
                     [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; });
}

struct Slot {
  std::string_view name;
  std::string_view meaning;
  bool (*accepts)(const Vocabulary& names, std::string_view word);
};

using Names = const Vocabulary&;
using Word = std::string_view;

constexpr std::array slots{
    Slot{"TEXT", "a text", [](Names, Word) { return true; }},
    Slot{"PATH", "a path", [](Names, Word word) { return !word.empty(); }},
    Slot{"LETTER", "a drive letter",
         [](Names, Word word) {
           const std::string upper = upperAscii(word);
           return upper.size() == 1 && upper[0] >= 'A' && upper[0] <= 'Z';
         }},
    Slot{"COUNT", "a whole number from 0", [](Names, Word word) { return isRow(word); }},
    Slot{"WHOLE", "a whole number", [](Names, Word word) { return wholeNumber(word).has_value(); }},
    Slot{"NUMBER", "a number", [](Names, Word word) { return decimalNumber(word).has_value(); }},
    Slot{"MEASURE", "a number from 0", [](Names, Word word) { return decimalNumber(word).value_or(-1) >= 0; }},
    Slot{"CONTROL", "the name of a control", [](Names names, Word word) { return names.find(word) != nullptr; }},
    Slot{"FORM1", "Form1", [](Names, Word word) { return word == mainWindowName; }},
    Slot{"FORM1OR", "the name of a control, or Form1",
         [](Names names, Word word) { return word == mainWindowName || names.find(word) != nullptr; }},
    Slot{"WINDOWOR", "the name of a control or a window",
         [](Names names, Word word) {
           return word == mainWindowName || word == splashName || names.find(word) != nullptr;
         }},
    Slot{"LIST", "the name of a list",
         [](Names names, Word word) { return isKind(names, word, {ControlKind::listBox}); }},
    Slot{"CHECKLIST", "the name of a check-box list",
         [](Names names, Word word) {
           return isKind(names, word, {ControlKind::listBox}) &&
                  static_cast<const ListBox*>(names.find(word))->style() == ListBox::Style::checkBoxes;
         }},
    Slot{"TIMER", "the name of a timer",
         [](Names names, Word word) { return isKind(names, word, {ControlKind::timer}); }},
    Slot{"SLIDER", "the name of a slider",
         [](Names names, Word word) { return isKind(names, word, {ControlKind::slider}); }},
    Slot{"CHOOSER", "the name of a drive or folder list",
         [](Names names, Word word) {
           return isKind(names, word, {ControlKind::driveList, ControlKind::folderList});
         }},
    Slot{"BOX", "the name of a check box or an option button",
         [](Names names, Word word) {
           return isKind(names, word, {ControlKind::checkBox, ControlKind::optionButton});
         }},
    Slot{"CLICKABLE", "the name of a button, picture, menu item, check box or option button",
         [](Names names, Word word) {
           return isKind(names, word,
                         {ControlKind::commandButton, ControlKind::picture, ControlKind::menu, ControlKind::checkBox,
                          ControlKind::optionButton});
         }},
    Slot{"POPUP", "the name of a pop-up menu", isPopUpMenu},
    Slot{"KEY", "one character, or enter, esc, space, backspace or tab",
         [](Names, Word word) { return oneOf("enter|esc|space|backspace|tab", word) || isCharacter(word); }},
};

constexpr std::string_view alternative = " / ";

struct Geometry {
  std::string_view slot;
  char repeat = ' ';  // or ?, * or +
};

std::vector<Geometry> placesOf(std::string_view shape) {
  std::vector<Geometry> places;
  if (shape.empty()) return places;
  for (const std::string_view piece : split(shape, ' ')) {
    const char last = piece.back();
    const bool marked = last == '?' || last == '*' || last == '+';
    places.push_back({marked ? piece.substr(0, piece.size() - 1) : piece, marked ? last : ' '});
  }
  return places;
}

const Slot* named(std::string_view name) {
  const auto found = std::find_if(slots.begin(), slots.end(), [name](const Slot& slot) { return slot.name == name; });
  return found == slots.end() ? nullptr : &*found;
}

std::string meaning(std::string_view slot) {
  if (const Slot* kind = named(slot)) return std::string(kind->meaning);
  std::string text;
  for (const std::string_view word : split(slot, '|')) text.append(text.empty() ? "" : " or ").append(word);
  return text;
}

class Matcher {
 public:
  Matcher(const std::vector<std::string>& words, const Vocabulary& names) : words_(words), names_(names) {}

  bool fits(std::string_view shape) {
    places_ = placesOf(shape);
    return matches(0, 0);
  }

  // The furthest word that did not fit, and what could have stood there.
  std::size_t furthest() const { return furthest_; }
  const std::string& wanted() const { return wanted_; }

 private:
  bool matches(std::size_t place, std::size_t word) {
    if (place == places_.size()) {
      if (word == words_.size()) return true;
      note(word, "nothing more");
      return false;
    }
    const auto [slot, repeat] = places_[place];
    const bool optional = repeat == '?' || repeat == '*';
    const std::size_t most = repeat == '*' || repeat == '+' ? words_.size() - word : 1;
    std::size_t taken = 0;
    while (taken < most && accepts(slot, word + taken)) ++taken;
    if (taken > 0 && matches(place + 1, word + taken)) return true;
    return optional && matches(place + 1, word);
  }

  bool accepts(std::string_view slot, std::size_t word) {
    if (word < words_.size()) {
      const Slot* kind = named(slot);
      if (kind != nullptr ? kind->accepts(names_, words_[word]) : oneOf(slot, words_[word])) return true;
    }
    note(word, meaning(slot));
    return false;
  }

  void note(std::size_t word, const std::string& wanted) {
    if (word < furthest_) return;
    if (word > furthest_ || wanted_.empty()) {
      wanted_ = wanted;
    } else if (wanted != "nothing more" && wanted_.find(wanted) == std::string::npos) {
      wanted_ += ", or " + wanted;
    }
    furthest_ = word;
  }

  std::vector<Geometry> places_;
  const std::vector<std::string>& words_;
  const Vocabulary& names_;
  std::size_t furthest_ = 0;
  std::string wanted_;
};

}  // namespace

void checkWords(std::string_view command, std::string_view shape, const std::vector<std::string>& words,
                const Vocabulary& vocabulary) {
  Matcher matcher(words, vocabulary);
  while (true) {
    const std::size_t end = shape.find(alternative);
    if (matcher.fits(shape.substr(0, end))) return;
    if (end == std::string_view::npos) break;
    shape.remove_prefix(end + alternative.size());
  }
  if (matcher.furthest() < words.size()) {
    throw Unreadable{words[matcher.furthest()], "expected here: " + matcher.wanted()};
  }
  throw Unreadable{words.empty() ? std::string(command) : words.back(), "expected behind it: " + matcher.wanted()};
}

}  // namespace plimo::scenario
