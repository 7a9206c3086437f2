// The class files of the library that this code stands in.
#pragma once

namespace zendara {

// Writes them as DllRegisterServer of zendara/zendara.h says, or removes them. RuntimeError with the reason as its
// detail: 51 when the code stands in a program or in a library without a path that a class file can name, errors of
// files otherwise. What was there before is there then.
void RegisterClasses();
void UnregisterClasses();

}  // namespace zendara
