#include "platform/memory/fake_node.h"

#include <utility>

#include "base/text.h"

namespace plimo {

FakeNode::FakeNode(Kind kind, std::string_view name, std::string shortName)
    : kind_(kind), name_(name), shortName_(std::move(shortName)) {}

FakeNode* FakeNode::find(std::string_view name) const {
  const std::string folded = foldCase(name);
  if (const auto child = children_.find(folded); child != children_.end()) return child->second.get();
  const auto child = byShortName_.find(folded);
  return child == byShortName_.end() ? nullptr : child->second;
}

FakeNode& FakeNode::add(Kind kind, std::string_view name) {
  const auto taken = [this](std::string_view candidate) { return find(candidate) != nullptr; };
  auto child = std::make_unique<FakeNode>(kind, name, shortNames_.nameFor(name, taken));
  FakeNode& added = *child;
  byShortName_[foldCase(added.shortName_)] = &added;
  children_[foldCase(name)] = std::move(child);
  return added;
}

void FakeNode::remove(const FakeNode& child) {
  shortNames_.release(child.shortName_);
  byShortName_.erase(foldCase(child.shortName_));
  children_.erase(foldCase(child.name_));
}

}  // namespace plimo
