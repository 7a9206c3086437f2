// The file of the library that this code stands in.
#pragma once

#include <string>

namespace zendara {

// Its whole path; where its folder has the link without the minor number, that one, which updates keep. Error 51 where
// there is no such path: the code stands in a program, or the file is not there any more.
std::string OwnLibrary();

}  // namespace zendara
