#include "support/FaultVfs.h"

#include <sqlite3.h>

#include <cerrno>
#include <new>
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

// SQLite's file object, with the real one right behind it.
struct File {
  sqlite3_file base;
  sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

File* Own(sqlite3_file* file) { return reinterpret_cast<File*>(file); }
sqlite3_file* Real(sqlite3_file* file) { return Own(file)->Real(); }

int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
  return Fails() ? SQLITE_FULL : Real(file)->pMethods->xWrite(Real(file), bytes, count, at);
}
// Nothing here pulls the plug, so the disk is not waited for.
int Sync(sqlite3_file*, int) { return Fails() ? SQLITE_IOERR_FSYNC : SQLITE_OK; }
int Truncate(sqlite3_file* file, sqlite3_int64 size) {
  return Fails() ? SQLITE_IOERR_TRUNCATE : Real(file)->pMethods->xTruncate(Real(file), size);
}

const sqlite3_io_methods Methods = {
    1,
    [](sqlite3_file* f) { return Real(f)->pMethods->xClose(Real(f)); },
    [](sqlite3_file* f, void* bytes, int count, sqlite3_int64 at) {
      if (Fails(true)) {
        errno = EIO;  // which SQLite turns into damage, from a real disk too
        return SQLITE_IOERR_CORRUPTFS;
      }
      return Real(f)->pMethods->xRead(Real(f), bytes, count, at);
    },
    Write,
    Truncate,
    Sync,
    [](sqlite3_file* f, sqlite3_int64* size) { return Real(f)->pMethods->xFileSize(Real(f), size); },
    [](sqlite3_file* f, int lock) { return Real(f)->pMethods->xLock(Real(f), lock); },
    [](sqlite3_file* f, int lock) { return Real(f)->pMethods->xUnlock(Real(f), lock); },
    [](sqlite3_file* f, int* result) { return Real(f)->pMethods->xCheckReservedLock(Real(f), result); },
    [](sqlite3_file* f, int what, void* value) {
      return Real(f)->pMethods->xFileControl(Real(f), what, value);
    },
    [](sqlite3_file* f) { return Real(f)->pMethods->xSectorSize(Real(f)); },
    [](sqlite3_file* f) { return Real(f)->pMethods->xDeviceCharacteristics(Real(f)); },
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
};

sqlite3_vfs* real = nullptr;
sqlite3_vfs fault;

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  File* const own = new (file) File{};
  if ((flags & SQLITE_OPEN_MAIN_JOURNAL) != 0 && Fails()) return SQLITE_CANTOPEN;
  const int result = real->xOpen(real, name, own->Real(), flags, outFlags);
  own->base.pMethods = own->Real()->pMethods == nullptr ? nullptr : &Methods;
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
  fault.szOsFile = int(sizeof(File)) + real->szOsFile;
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

void FaultVfs::Arm(int n, bool lasting) { state = {true, false, lasting, false, n, false}; }
void FaultVfs::ArmReads(int n, bool lasting) { state = {true, true, lasting, false, n, false}; }
void FaultVfs::Disarm() { state.armed = false; }
void FaultVfs::FailBehindDeletion() { state.behindDeletion = true; }
bool FaultVfs::HasFailed() { return state.failed; }

}  // namespace vorlina
