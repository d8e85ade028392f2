#include "kill/call_errors.h"

#include <fcntl.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <set>

namespace plimo {

namespace {

struct Call {
  long number;
  const char* name;
  std::vector<int> errors;
  bool transfersBytes = false;
};

// As the manual pages have them. A missing file is no failure of its own: it would have to be missing for all calls.
const Call calls[] = {
    {SYS_openat, "openat", {EACCES, EMFILE, ENFILE, EIO, EINTR, ENOMEM}, false},
    {SYS_read, "read", {EIO, EINTR}, true},
    {SYS_write, "write", {ENOSPC, EDQUOT, EIO, EINTR}, true},
    {SYS_copy_file_range, "copy_file_range", {ENOSPC, EDQUOT, EIO, EXDEV, EOPNOTSUPP, ENOSYS, EINTR}, true},
    {SYS_fsync, "fsync", {EIO, ENOSPC, EDQUOT, EROFS}, false},
    {SYS_sync_file_range, "sync_file_range", {EIO, ENOSPC, ENOMEM}, false},
    {SYS_close, "close", {EIO, EINTR}, false},
    {SYS_rename, "rename", {EACCES, EPERM, EBUSY, EIO, ENOSPC, EROFS, EXDEV}, false},
    {SYS_renameat, "renameat", {EACCES, EPERM, EBUSY, EIO, ENOSPC, EROFS}, false},
    {SYS_renameat2, "renameat2", {EACCES, EPERM, EINVAL, ENOSYS, EIO, ENOSPC, EROFS}, false},
    {SYS_linkat, "linkat", {EACCES, EPERM, EIO, ENOSPC, EROFS, EMLINK, ENOENT}, false},
    {SYS_unlink, "unlink", {EACCES, EPERM, EBUSY, EIO, EROFS}, false},
    {SYS_unlinkat, "unlinkat", {EACCES, EPERM, EIO, EROFS}, false},
    {SYS_newfstatat, "newfstatat", {EACCES, EIO, ENOMEM}, false},
    {SYS_readlink, "readlink", {EACCES, EIO}, false},
    {SYS_faccessat, "faccessat", {EACCES, EIO}, false},
    {SYS_faccessat2, "faccessat2", {EACCES, EIO, ENOSYS}, false},
    {SYS_access, "access", {EACCES, EIO, ENOENT}, false},
    {SYS_getdents64, "getdents64", {EIO}, false},
    {SYS_getcwd, "getcwd", {ENOENT, EACCES, ENOMEM}, false},
    {SYS_fchmod, "fchmod", {EPERM, EIO, EROFS}, false},
    {SYS_fchown, "fchown", {EPERM, EIO}, false},
    {SYS_utimensat, "utimensat", {EPERM, EACCES, EROFS}, false},
    {SYS_flock, "flock", {ENOLCK, EINTR}, false},
    {SYS_mmap, "mmap", {ENOMEM}, false},
    {SYS_clone3, "clone3", {EAGAIN}, false},
    {SYS_statfs, "statfs", {EIO}, false},
};

const Call* find(long number) {
  const auto* const call =
      std::find_if(std::begin(calls), std::end(calls), [&](const Call& one) { return one.number == number; });
  return call == std::end(calls) ? nullptr : call;
}

}  // namespace

bool concernsFiles(long number) {
  static const std::set<long> others{SYS_futex,          SYS_munmap, SYS_mprotect,        SYS_brk,
                                     SYS_rt_sigprocmask, SYS_rseq,   SYS_set_robust_list, SYS_exit,
                                     SYS_rt_sigaction,   SYS_getpid, SYS_geteuid,         SYS_sched_getaffinity,
                                     SYS_madvise,        SYS_gettid, SYS_sched_yield,     SYS_clock_nanosleep,
                                     SYS_getrandom};
  return !others.contains(number);
}

std::string callName(long number) {
  const Call* const call = find(number);
  return call ? call->name : std::to_string(number);
}

std::vector<Decision> failuresOf(const SystemCall& call) {
  const Call* const known = find(call.number);
  if (known == nullptr) return {};
  std::vector<Decision> failures;
  for (const int error : known->errors) failures.push_back(Decision::fail(error));
  const bool creates = call.number == SYS_openat && (call.arguments[2] & (O_CREAT | O_TMPFILE)) != 0 &&
                       (call.arguments[2] & O_DIRECTORY) != O_DIRECTORY;
  const bool unnamed = call.number == SYS_openat && (call.arguments[2] & O_TMPFILE) == O_TMPFILE;
  if (creates || unnamed) {
    for (const int error : {ENOSPC, EDQUOT, EROFS}) failures.push_back(Decision::fail(error));
  }
  if (unnamed) failures.push_back(Decision::fail(EISDIR));  // a kernel that does not know it
  if (known->transfersBytes) failures.push_back(Decision::shorten());
  return failures;
}

}  // namespace plimo
