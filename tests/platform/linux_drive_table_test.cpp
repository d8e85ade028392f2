#include <gtest/gtest.h>

#include <filesystem>

#include "platform/linux/drive_table.h"
#include "platform/linux/linux_files.h"
#include "support/temporary_folder.h"

namespace plimo {
namespace {

class PosixDriveTable : public testing::Test {
 protected:
  PosixDriveTable() {
    sources_.mountInfo = folder_ / "mountinfo";
    sources_.blockDevices = folder_ / "block";
    sources_.home = "/home/ana";
  }

  // "C:2:/home/ana D:4:/mnt/cd": letter, number of the kind, root folder.
  std::string table(const std::string& mounts) {
    writeFile(sources_.mountInfo, mounts);
    std::string text;
    for (const DriveRoot& drive : defaultDriveTable(sources_)) {
      if (!text.empty()) text += ' ';
      text += std::string(1, drive.letter) + ":" + std::to_string(static_cast<int>(drive.type)) + ":" + drive.root;
    }
    return text;
  }

  TemporaryFolder folder_;
  SystemPaths sources_;
};

TEST_F(PosixDriveTable, TheHomeFolderIsDriveC) { EXPECT_EQ(table(""), "C:2:/home/ana"); }

TEST_F(PosixDriveTable, FurtherRealFileSystemsFollowInTheOrderOfMounting) {
  EXPECT_EQ(table("22 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw\n"
                  "23 22 0:21 / /proc rw shared:2 - proc proc rw\n"
                  "24 22 8:1 / /boot/efi rw shared:3 - vfat /dev/sda1 rw\n"
                  "25 22 8:3 / /home rw shared:4 - ext4 /dev/sda3 rw\n"
                  "26 22 0:40 / /mnt/net rw shared:5 - nfs4 server:/music rw\n"
                  "27 22 0:41 / /mnt/mem rw shared:6 - tmpfs tmpfs rw\n"
                  "28 22 8:33 / /srv/music rw shared:7 - ext4 /dev/sdc1 rw\n"
                  "29 22 11:0 / /media/cdrom ro - iso9660 /dev/sr0 ro\n"
                  "30 22 7:0 / /snap/core/1 ro shared:8 - squashfs /dev/loop0 ro\n"
                  "31 22 8:17 / /run/media/ana/Blue\\040Stick rw shared:9 master:1 - vfat /dev/sdb1 rw\n"),
            "C:2:/home/ana D:2:/srv/music E:4:/media/cdrom F:2:/run/media/ana/Blue Stick");
}

TEST_F(PosixDriveTable, EachDeviceIsOneDrive) {
  EXPECT_EQ(table("22 1 0:30 /@ / rw - btrfs /dev/sda2 rw\n"
                  "23 22 0:30 /@snapshots /snapshots rw - btrfs /dev/sda2 rw\n"
                  "24 22 8:17 / /mnt/disk rw - ext4 /dev/sdb1 rw\n"
                  "25 22 8:17 /music /mnt/bound rw - ext4 /dev/sdb1 rw\n"),
            "C:2:/home/ana D:2:/mnt/disk");
}

TEST_F(PosixDriveTable, ARemovableDiskIsKnownByItsFlag) {
  writeFile(folder_ / "devices/sdb/removable", "1\n");
  writeFile(folder_ / "devices/sdb/sdb1/partition", "1\n");
  writeFile(folder_ / "devices/sdc/removable", "0\n");
  writeFile(folder_ / "devices/sdc/sdc1/partition", "1\n");
  writeFile(folder_ / "devices/sdd/removable", "1\n");
  writeFile(folder_ / "devices/dm-0/removable", "0\n");
  makeFolders(folder_ / "devices/dm-0/slaves");
  makeFolders(sources_.blockDevices);
  for (const char* name : {"sdb/sdb1", "sdc/sdc1", "sdd", "dm-0"}) {
    const std::filesystem::path device = folder_ / (std::string("devices/") + name);
    std::filesystem::create_symlink(device, sources_.blockDevices + "/" + device.filename().string());
  }
  std::filesystem::create_symlink(folder_ / "devices/sdb/sdb1", folder_ / "devices/dm-0/slaves/sdb1");
  EXPECT_EQ(table("1 1 8:17 / /mnt/b rw - vfat /dev/sdb1 rw\n"
                  "2 1 8:33 / /mnt/c rw - ext4 /dev/sdc1 rw\n"
                  "3 1 8:48 / /mnt/d rw - vfat /dev/sdd rw\n"
                  "4 1 253:0 / /mnt/e rw - ext4 /dev/dm-0 rw\n"),
            "C:2:/home/ana D:1:/mnt/b E:2:/mnt/c F:1:/mnt/d G:1:/mnt/e");
}

TEST_F(PosixDriveTable, LettersEndWithZ) {
  std::string mounts;
  for (int i = 0; i < 40; ++i) {
    const std::string n = std::to_string(i);
    mounts.append(n).append(" 1 9:").append(n).append(" / /mnt/").append(n);
    mounts.append(" rw - ext4 /dev/md").append(n).append(" rw\n");
  }
  const std::string text = table(mounts);
  EXPECT_TRUE(text.ends_with(" Z:2:/mnt/22")) << text;
}

TEST_F(PosixDriveTable, LinesThatAreNoMountsArePassedOver) {
  EXPECT_EQ(table("\nnonsense\n1 2 3 4 5 6 7\n1 1 8:17 / /mnt/b rw - vfat\n"), "C:2:/home/ana");
}

TEST_F(PosixDriveTable, WithoutAMountTableThereIsTheHomeFolder) {
  const auto drives = defaultDriveTable(sources_);
  ASSERT_EQ(drives.size(), 1U);
  EXPECT_EQ(drives[0].root, "/home/ana");
}

TEST_F(PosixDriveTable, TheMachinesDrivesAreAskedAfreshEachTime) {
  sources_.home = folder_.path();
  const std::string disk = "/mnt/plimo test, not there";
  LinuxFiles files(sources_);
  EXPECT_EQ(files.drives().size(), 1U);
  EXPECT_TRUE(files.drives()[0].ready);
  writeFile(sources_.mountInfo, "1 1 8:17 / /mnt/plimo\\040test,\\040not\\040there rw - vfat /dev/sdb1 rw\n");
  ASSERT_EQ(files.drives().size(), 2U);
  EXPECT_FALSE(files.drives()[1].ready);
  EXPECT_TRUE(files.isRootFolder(disk));
}

}  // namespace
}  // namespace plimo
