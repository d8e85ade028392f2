#include "platform/shared/listed_names.h"

#include <algorithm>

#include "base/text.h"

namespace plimo {

void ListedNames::clear() {
  text_.clear();
  for (Names* names : {&files_, &folders_}) {
    names->found.clear();
    names->sorted.clear();
  }
}

void ListedNames::add(Names& names, std::string_view name) {
  Name entry{text_.size(), name.size(), 0, 0};
  text_.append(name);
  entry.key = text_.size();
  appendFolded(text_, name);
  entry.keyLength = text_.size() - entry.key;
  names.found.push_back(entry);
}

void ListedNames::sort() {
  sort(files_);
  sort(folders_);
}

void ListedNames::sort(Names& names) const {
  const std::string_view text = text_;
  std::sort(names.found.begin(), names.found.end(), [text](const Name& left, const Name& right) {
    const int order = text.substr(left.key, left.keyLength).compare(text.substr(right.key, right.keyLength));
    if (order != 0) return order < 0;
    return text.substr(left.offset, left.length) < text.substr(right.offset, right.length);
  });
  names.sorted.clear();
  for (const Name& name : names.found) names.sorted.push_back(text.substr(name.offset, name.length));
}

}  // namespace plimo
