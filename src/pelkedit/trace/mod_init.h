#pragma once

#include "trace/trace.h"

namespace pelkedit {

class IPlatform;

// Start-up of the library on a thread: creates the thread's trace object. When it cannot be
// created the user is told and the creation error is raised again.
void Main(IPlatform& platform);
bool LibraryStarted();
// The thread's trace object (error 91 when the library has not started on this thread).
ITrace& ThreadTrace();
// Unloads the library from this thread (hosts and tests that start a fresh world).
void UnloadLibrary();

}  // namespace pelkedit
