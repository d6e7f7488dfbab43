#pragma once
// Pieces shared by the controls of this layer, not by the program.
#include <string>

namespace wh::detail {

// Window class of frames and picture boxes (container.cpp).
const char* container_class();

// The full form of a folder path, with no closing backslash except on a
// root (file_list_box.cpp).
std::string folder_full_path(const std::string& path);

}  // namespace wh::detail
