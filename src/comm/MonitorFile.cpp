#include "comm/MonitorFile.h"

#include <string>

#include "platform/Libraries.h"
#include "platform/Module.h"

namespace ostvt {

void* MonitorLoader::Open() {
  return platform::OpenLibrary((platform::ModuleDirectory() + u"\\" + kMonitorFileName).c_str());
}

void* MonitorLoader::Find(void* file, const char* name) { return platform::FindSymbol(file, name); }

void MonitorLoader::Close(void* file) { platform::CloseLibrary(file); }

MonitorFile::MonitorFile(MonitorLoader* loader) : Loader(loader ? loader : &ByPath) {
  File = Loader->Open();
}

MonitorFile::~MonitorFile() {
  if (File) Loader->Close(File);
}

}  // namespace ostvt
