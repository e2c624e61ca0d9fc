// Work in a process of its own without the rights of an administrator, who may read and write everything.
#pragma once

#include <functional>
#include <string>

namespace support {

/// What the work gives there, or the text of the exception that ends it.
std::string inPlainProcess(const std::function<std::string()>& work);

}  // namespace support
