// Dynamic libraries that are loaded while the program runs.
#pragma once

namespace ostvt::platform {

// A loaded library; null is none.
using LibraryHandle = void*;

// `path` with a directory loads exactly that file, and what the library itself needs is looked for
// in its own directory too; without one it is the system's library of that name. Null on failure,
// with no dialog. Close with CloseLibrary; the system counts the openings.
LibraryHandle OpenLibrary(const char16_t* path);
// Null when the library is null or has no such export. Valid until the last CloseLibrary.
void* FindSymbol(LibraryHandle library, const char* name);
void CloseLibrary(LibraryHandle library);  // null is allowed

// FindSymbol as a pointer to a function of type `F`.
template <typename F>
F* FindFunction(LibraryHandle library, const char* name) {
  return reinterpret_cast<F*>(FindSymbol(library, name));
}

}  // namespace ostvt::platform
