// What the tool needs of the system beyond the driver's own platform code.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Spooler.h"

namespace vtdal {

extern const char16_t kSeparator;     // between directories
extern const char16_t kModuleName[];  // the module's file
// Where an installation keeps the module, from this program's directory on; "" where it lies there.
extern const char16_t kInstalledPlace[];
extern const bool kSpoolerTellsDrivers;  // of new printers; where it doesn't, the tool must

// "" where it isn't set.
std::u16string EnvironmentValue(const char* name);
bool FileExists(const std::u16string& path);
// Of this process, while it lives.
uint32_t ProcessNumber();
// The path from the root on, since the loader and the spooler have other ideas of where "here" is.
std::u16string AbsolutePath(const std::u16string& path);

// "" or what is wrong with the form of a new printer's port.
std::string PortProblem(const std::u16string& port);

// Whether the spooler knows the driver, as far as that can be told before it is asked for a
// printer.
bool IsDriverKnown(const std::u16string& name);
// Makes the driver `name` known, with its files in `directory`. False with the reason in `error`.
bool RegisterDriver(const std::u16string& name, const std::u16string& directory,
                    std::string* error);
// Takes back what RegisterDriver did.
void ForgetDriver(const std::u16string& name);
// Why the spooler refused the new printer, asked right after its refusal.
std::string RefusalReason(const ostvt::platform::NewPrinter& printer);

}  // namespace vtdal
