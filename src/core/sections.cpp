// The section buttons. Each entry handler hides the other sections, fills
// its lists and sets ActiveSection; the pages come section by section.
#include "core/mainu.h"

namespace wh {

void Mainu::junk_Click() {}

}  // namespace wh
