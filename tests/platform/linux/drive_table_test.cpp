#include <gtest/gtest.h>

#include <filesystem>

#include "platform/linux/drive_table.h"
#include "platform/linux/linux_files.h"
#include "support/temporary_folder.h"

namespace plimo {
namespace {

class DriveTableTest : public testing::Test {
 protected:
  DriveTableTest() {
    paths_.mounts = folder_ / "mounts";
    paths_.blockDevices = folder_ / "block";
    paths_.home = "/home/ana";
  }

  // For example "C:2:/home/ana D:4:/mnt/cd": letter, drive type, root folder.
  std::string table(const std::string& mounts) {
    writeFile(paths_.mounts, mounts);
    std::string text;
    for (const DriveRoot& drive : defaultDriveTable(paths_)) {
      if (!text.empty()) text += ' ';
      text += std::string(1, drive.letter) + ":" + std::to_string(static_cast<int>(drive.type)) + ":" + drive.root;
    }
    return text;
  }

  TemporaryFolder folder_;
  SystemPaths paths_;
};

TEST_F(DriveTableTest, TheHomeFolderIsDriveC) { EXPECT_EQ(table(""), "C:2:/home/ana"); }

TEST_F(DriveTableTest, FurtherFileSystemsWithADeviceFollowInTheOrderOfMounting) {
  EXPECT_EQ(table("/dev/sda2 / ext4 rw,relatime 0 0\n"
                  "proc /proc proc rw 0 0\n"
                  "/dev/sda1 /boot/efi vfat rw 0 0\n"
                  "/dev/sda3 /home ext4 rw 0 0\n"
                  "server:/music /mnt/net nfs4 rw 0 0\n"
                  "tmpfs /mnt/mem tmpfs rw 0 0\n"
                  "/dev/sdc1 /srv/music ext4 rw 0 0\n"
                  "/dev/sr0 /media/cdrom iso9660 ro 0 0\n"
                  "/dev/loop0 /snap/core/1 squashfs ro 0 0\n"
                  "/dev/sdb1 /run/media/ana/Blue\\040Stick vfat rw 0 0\n"),
            "C:2:/home/ana D:2:/srv/music E:4:/media/cdrom F:2:/run/media/ana/Blue Stick");
}

TEST_F(DriveTableTest, EachDeviceIsOneDrive) {
  EXPECT_EQ(table("/dev/sda2 / btrfs rw 0 0\n"
                  "/dev/sda2 /snapshots btrfs rw 0 0\n"
                  "/dev/sdb1 /mnt/disk ext4 rw 0 0\n"
                  "/dev/sdb1 /mnt/bound ext4 rw 0 0\n"),
            "C:2:/home/ana D:2:/mnt/disk");
}

TEST_F(DriveTableTest, TwoNamesOfADeviceAreOneDrive) {
  EXPECT_EQ(table("/dev/null /mnt/a ext4 rw 0 0\n/dev/./null /mnt/b ext4 rw 0 0\n"), "C:2:/home/ana D:2:/mnt/a");
}

TEST_F(DriveTableTest, ARemovableDiskIsRecognisedByItsFlag) {
  writeFile(folder_ / "devices/sdb/removable", "1\n");
  writeFile(folder_ / "devices/sdb/sdb1/partition", "1\n");
  writeFile(folder_ / "devices/sdc/removable", "0\n");
  writeFile(folder_ / "devices/sdc/sdc1/partition", "1\n");
  writeFile(folder_ / "devices/sdd/removable", "1\n");
  writeFile(folder_ / "devices/dm-0/removable", "0\n");
  makeFolders(folder_ / "devices/dm-0/slaves");
  makeFolders(paths_.blockDevices);
  for (const char* name : {"sdb/sdb1", "sdc/sdc1", "sdd", "dm-0"}) {
    const std::filesystem::path device = folder_ / (std::string("devices/") + name);
    std::filesystem::create_symlink(device, paths_.blockDevices + "/" + device.filename().string());
  }
  std::filesystem::create_symlink(folder_ / "devices/sdb/sdb1", folder_ / "devices/dm-0/slaves/sdb1");
  EXPECT_EQ(table("/dev/sdb1 /mnt/b vfat rw 0 0\n"
                  "/dev/sdc1 /mnt/c ext4 rw 0 0\n"
                  "/dev/sdd /mnt/d vfat rw 0 0\n"
                  "/dev/dm-0 /mnt/e ext4 rw 0 0\n"),
            "C:2:/home/ana D:1:/mnt/b E:2:/mnt/c F:1:/mnt/d G:1:/mnt/e");
}

TEST_F(DriveTableTest, LettersEndWithZ) {
  std::string mounts;
  for (int i = 0; i < 40; ++i) {
    const std::string n = std::to_string(i);
    mounts.append("/dev/md").append(n).append(" /mnt/").append(n).append(" ext4 rw 0 0\n");
  }
  const std::string text = table(mounts);
  EXPECT_TRUE(text.ends_with(" Z:2:/mnt/22")) << text;
}

TEST_F(DriveTableTest, InvalidLinesAreSkipped) {
  EXPECT_EQ(table("\nnonsense\n/dev/sdb1\n# /dev/sdc1 /mnt/c ext4 rw 0 0\n/dev/sdd1 mnt ext4 rw 0 0\n"),
            "C:2:/home/ana");
}

TEST_F(DriveTableTest, WithoutAMountTableThereIsOnlyTheHomeFolder) {
  const auto drives = defaultDriveTable(paths_);
  ASSERT_EQ(drives.size(), 1U);
  EXPECT_EQ(drives[0].root, "/home/ana");
}

TEST_F(DriveTableTest, TheSystemsDrivesAreReadAgainAtEachCall) {
  paths_.home = folder_.path();
  const std::string disk = "/mnt/plimo test, not there";
  LinuxFiles files(paths_);
  EXPECT_EQ(files.drives().size(), 1U);
  EXPECT_TRUE(files.drives()[0].ready);
  writeFile(paths_.mounts, "/dev/sdb1 /mnt/plimo\\040test,\\040not\\040there vfat rw 0 0\n");
  ASSERT_EQ(files.drives().size(), 2U);
  EXPECT_FALSE(files.drives()[1].ready);
  EXPECT_TRUE(files.isRootFolder(disk));
}

}  // namespace
}  // namespace plimo
