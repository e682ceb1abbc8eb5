#include <new>
#include <string>

#include "platform/KeyStore.h"
#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

constexpr DWORD kBusyMilliseconds = 10000;

// One for each hive, for the processes of all users.
constexpr char16_t kMutexName[] = u"Global\\Vantrel Driver Store ";

// Null where the process may not have it: then it goes without.
struct HeldMutex {
  HANDLE Mutex;
};

HeldMutex* AsHeld(void* state) { return static_cast<HeldMutex*>(state); }

HANDLE OpenMutexOf(Hive hive) {
  std::u16string name = kMutexName;
  name += static_cast<char16_t>(u'0' + static_cast<int>(hive));
  SECURITY_DESCRIPTOR descriptor;
  if (!InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) ||
      !SetSecurityDescriptorDacl(&descriptor, TRUE, nullptr, FALSE)) {
    return nullptr;
  }
  SECURITY_ATTRIBUTES attributes = {sizeof(attributes), &descriptor, FALSE};
  const HANDLE mutex = CreateMutexW(&attributes, FALSE, AsWide(name.c_str()));
  // Who may not have every right to one that is there already may still wait for it.
  return mutex ? mutex : OpenMutexW(SYNCHRONIZE, FALSE, AsWide(name.c_str()));
}

// A holder that died has left each value whole, so what it left is taken.
bool Take(HANDLE mutex) {
  const DWORD result = WaitForSingleObject(mutex, kBusyMilliseconds);
  return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

}  // namespace

// Readers take it like writers: they must not see a list that is half written.
KeyStoreTransaction::KeyStoreTransaction(Hive hive, Purpose) {
  const HANDLE mutex = OpenMutexOf(hive);
  if (mutex && !Take(mutex)) {
    CloseHandle(mutex);
    return;
  }
  State = new (std::nothrow) HeldMutex{mutex};
  if (State || !mutex) return;
  ReleaseMutex(mutex);
  CloseHandle(mutex);
}

KeyStoreTransaction::~KeyStoreTransaction() {
  HeldMutex* held = AsHeld(State);
  if (!held) return;
  if (held->Mutex) {
    ReleaseMutex(held->Mutex);
    CloseHandle(held->Mutex);
  }
  delete held;
}

bool KeyStoreTransaction::CanRollBack() const { return false; }

bool KeyStoreTransaction::Commit() { return IsOpen(); }

}  // namespace ostvt::platform
