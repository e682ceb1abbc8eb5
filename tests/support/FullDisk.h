// A disk that has no room left, for as long as it lives: no file of the process takes a byte.
#pragma once

#ifdef __linux__

#include <sys/resource.h>

#include <csignal>

namespace ostvt::test {

class FullDisk {
 public:
  FullDisk() {
    Handler = signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &Before);
    rlimit none = Before;
    none.rlim_cur = 0;
    setrlimit(RLIMIT_FSIZE, &none);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &Before);
    signal(SIGXFSZ, Handler);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit Before;
  sighandler_t Handler;
};

}  // namespace ostvt::test

#endif
