#include "cleaning/index_files.h"

namespace wh {

// Filled by the work on the locked index files.
void clean_index_files() {}

}  // namespace wh
