// One file or folder of the computer in memory.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/memory/short_name.h"

namespace plimo {

// What may not be done with a file.
struct FileFlags {
  bool readOnly = false;
  bool locked = false;  // another program has it open
  bool unreadable = false;
};

// What may not be done with a folder: list it; make, replace or delete files in it.
struct FolderFlags {
  bool unreadable = false;
  bool unwritable = false;
};

class FakeNode {
 public:
  enum class Kind { file, folder };

  FakeNode(Kind kind, std::string_view name, std::string shortName);

  bool isFolder() const { return kind_ == Kind::folder; }
  // As it stands on the disk; empty for a drive's root.
  const std::string& name() const { return name_; }
  const std::string& shortName() const { return shortName_; }

  // --- Folders ---

  // By the long or the short name, without regard to case; null where there is none.
  FakeNode* find(std::string_view name) const;
  // Adds what `find` does not find.
  FakeNode& add(Kind kind, std::string_view name);
  void remove(const FakeNode& child);

  // By folded name, which is the order of a listing.
  using Children = std::map<std::string, std::unique_ptr<FakeNode>>;
  const Children& children() const { return children_; }

  FolderFlags folderFlags;

  // --- Files ---

  // Null for a file of which only the size is kept; it reads as zeros.
  std::shared_ptr<const std::string> content;
  std::uint64_t size = 0;  // in bytes
  FileFlags fileFlags;

 private:
  Kind kind_;
  std::string name_;
  std::string shortName_;
  Children children_;
  std::map<std::string, FakeNode*> byShortName_;  // by folded short name
  ShortNames shortNames_;
};

}  // namespace plimo
