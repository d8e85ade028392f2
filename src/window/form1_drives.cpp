// The entries of the drive and folder lists.
#include <algorithm>

#include "window/drive_rows.h"
#include "window/form1.h"

namespace plimo {

namespace {

std::vector<DriveList::Entry> allDrives(FileSystemObject& files) {
  std::vector<DriveList::Entry> entries;
  for (const Drive& drive : files.drives()) entries.push_back({drive.letter, kindName(drive.type), drive.root});
  return entries;
}

// The root folder of the drive whose letter the row begins with; empty if there is none.
std::string rootOfDrive(FileSystemObject& files, std::string_view row) {
  for (const Drive& drive : files.drives()) {
    if (!row.empty() && drive.letter == row.front()) return drive.root;
  }
  return {};
}

FolderList::Listing listFolder(FileSystemObject& files, std::string_view folder) {
  FolderList::Listing listing;
  // The folder of something in it: without a separator at its end, except for a root.
  listing.path = files.folderOf(files.join(folder, "anything"));
  for (std::string& name : files.contents(folder).folders) listing.folders.push_back(files.join(listing.path, name));
  listing.ancestors.push_back(listing.path);
  while (!files.isRootFolder(listing.ancestors.back())) {
    std::string parent = files.folderOf(listing.ancestors.back());
    if (parent.empty() || parent == listing.ancestors.back()) break;
    listing.ancestors.push_back(std::move(parent));
  }
  std::reverse(listing.ancestors.begin(), listing.ancestors.end());
  return listing;
}

}  // namespace

void Form1::fillDrives(ListBox& list) {
  for (const Drive& drive : platform.files.drives()) {
    if (drive.type == DriveType::cdrom || drive.type == DriveType::fixed || drive.type == DriveType::removable) {
      list.add(driveRow(drive));
    }
  }
}

void Form1::showDrive(const DriveList& drives, FolderList& folders) {
  for (const DriveList::Entry& drive : drives.entries()) {
    if (drive.letter == drives.drive()) folders.setPath(drive.root);
  }
}

void Form1::provideDrivesAndFolders() {
  for (DriveList* list : {&Drive1, &Drive2}) list->source = [this] { return allDrives(platform.files); };
  for (ListBox* list : {&List5, &List7}) {
    list->secondaryText = [this](std::string_view row) { return rootOfDrive(platform.files, row); };
  }
  for (FolderList* list : {&Dir1, &Dir2}) {
    list->source = [this](std::string_view folder) { return listFolder(platform.files, folder); };
  }
}

}  // namespace plimo
