// One file or folder of the FakeFileSystem.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/memory/short_name.h"

namespace plimo {

// Restrictions of a file.
struct FileFlags {
  bool readOnly = false;
  bool locked = false;  // another program has it open
  bool unreadable = false;
};

// Restrictions of a folder.
struct FolderFlags {
  bool unreadable = false;  // it cannot be listed
  bool unwritable = false;  // no file in it can be created, replaced or deleted
};

class FakeNode {
 public:
  enum class Kind { file, folder };

  FakeNode(Kind kind, std::string_view name, std::string shortName);

  bool isFolder() const { return kind_ == Kind::folder; }
  // With its case as stored; empty for a drive's root.
  const std::string& name() const { return name_; }
  const std::string& shortName() const { return shortName_; }

  // --- Folders ---

  // Finds a child by its long or short name, case-insensitively; null if there is none.
  FakeNode* find(std::string_view name) const;
  // Precondition: `find` finds no such child.
  FakeNode& add(Kind kind, std::string_view name);
  void remove(const FakeNode& child);

  // By case-folded name, which is the order of a listing.
  using Children = std::map<std::string, std::unique_ptr<FakeNode>>;
  const Children& children() const { return children_; }

  FolderFlags folderFlags;

  // --- Files ---

  // Null for a file that has only a size; it reads as zeros.
  std::shared_ptr<const std::string> content;
  std::uint64_t size = 0;  // in bytes
  FileFlags fileFlags;

 private:
  Kind kind_;
  std::string name_;
  std::string shortName_;
  Children children_;
  std::map<std::string, FakeNode*> byShortName_;  // by case-folded short name
  ShortNames shortNames_;
};

}  // namespace plimo
