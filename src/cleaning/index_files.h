#pragma once
// Category 18 of section 8: the browsers' index files, overwritten and
// scheduled for removal, which takes stopping Explorer.
namespace wh {

void clean_index_files();

}  // namespace wh
