#include "support/FaultVfs.h"

#include <sqlite3.h>

#include <cerrno>
#include <utility>

namespace vorlina {
namespace {

struct State {
  bool armed = false;
  bool reads = false;
  bool lasting = false;
  bool failed = false;
  int left = 0;
  bool behindDeletion = false;
} state;

bool Fails(bool reads = false) {
  if (!state.armed || state.reads != reads) return false;
  --state.left;
  const bool fails = state.left == 0 || (state.lasting && state.left < 0);
  state.failed = state.failed || fails;
  return fails;
}

// The real calls, and the tables in their place: all files of a test lie on one file system, but the
// database alone is locked.
sqlite3_vfs* real = nullptr;
sqlite3_vfs fault;
sqlite3_io_methods calls;
sqlite3_io_methods faultCalls[2];

int Read(sqlite3_file* file, void* bytes, int count, sqlite3_int64 at) {
  if (!Fails(true)) return calls.xRead(file, bytes, count, at);
  errno = EIO;  // which SQLite turns into damage, from a real disk too
  return SQLITE_IOERR_CORRUPTFS;
}
int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
  return Fails() ? SQLITE_FULL : calls.xWrite(file, bytes, count, at);
}
// Nothing here pulls the plug, so the disk is not waited for.
int Sync(sqlite3_file*, int) { return Fails() ? SQLITE_IOERR_FSYNC : SQLITE_OK; }
int Truncate(sqlite3_file* file, sqlite3_int64 size) {
  return Fails() ? SQLITE_IOERR_TRUNCATE : calls.xTruncate(file, size);
}

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  file->pMethods = nullptr;
  if ((flags & SQLITE_OPEN_MAIN_JOURNAL) != 0 && Fails()) return SQLITE_CANTOPEN;
  const int result = real->xOpen(real, name, file, flags, outFlags);
  if (file->pMethods == nullptr) return result;
  sqlite3_io_methods& own = faultCalls[(flags & SQLITE_OPEN_MAIN_DB) != 0 ? 0 : 1];
  calls = own = *file->pMethods;
  own.iVersion = 1;
  own.xRead = Read;
  own.xWrite = Write;
  own.xSync = Sync;
  own.xTruncate = Truncate;
  file->pMethods = &own;
  return result;
}

int Delete(sqlite3_vfs*, const char* name, int) {
  if (std::exchange(state.behindDeletion, false)) {
    real->xDelete(real, name, 0);
    return SQLITE_IOERR_DIR_FSYNC;
  }
  return Fails() ? SQLITE_IOERR_DELETE : real->xDelete(real, name, 0);
}

}  // namespace

FaultVfs::FaultVfs() {
  real = sqlite3_vfs_find(nullptr);
  fault = *real;
  fault.zName = "fault";
  fault.pNext = nullptr;
  fault.xOpen = Open;
  fault.xDelete = Delete;
  sqlite3_vfs_register(&fault, 1);
}

FaultVfs::~FaultVfs() {
  sqlite3_vfs_unregister(&fault);
  sqlite3_vfs_register(real, 1);
  Disarm();
}

void FaultVfs::Arm(Calls which, int n, bool lasting) {
  state = {true, which == Calls::Reads, lasting, false, n, false};
}
void FaultVfs::Disarm() { state.armed = false; }
void FaultVfs::FailBehindDeletion() { state.behindDeletion = true; }
bool FaultVfs::HasFailed() { return state.failed; }

}  // namespace vorlina
