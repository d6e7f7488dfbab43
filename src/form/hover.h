#pragma once
// The help texts that the skin's buttons write on the LCD panel while the
// mouse is over them, and the one pattern their mouse-move handlers follow.
#include <string>
#include <vector>

namespace wh {

class MainForm;

// The help of a button (by control name) in a language (1 English, anything
// else Romanian). The action buttons' help depends on the section showing.
std::vector<std::string> hover_lines(const std::string& control, int language, int section);

// The hover key of a button, as `lighton` holds it; empty for other controls.
std::string hover_key(const std::string& control);

// The pattern: nothing when the button is lit already; else the old one is
// put out, del/delall/ref take their lit picture, the LCD shows the help,
// and `lighton` takes the key.
void hover(MainForm& form, const std::string& control);

// Wires the MouseMove of every skin button to hover().
void wire_hover(MainForm& form);

}  // namespace wh
