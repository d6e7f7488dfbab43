#pragma once
// Routines of the core that belong to work still to come. Each is an empty
// function with its final name, so that the callers stand whole; the
// sections' own blocks are empty members of their pages.
namespace wh {

// The two Explorer verbs under HKEY_CLASSES_ROOT. True when the file verb is
// complete (register) or all four keys went (unregister).
bool register_context_menu();
bool unregister_context_menu();

}  // namespace wh
