#pragma once
// The help texts that the skin's buttons and the sections' controls write on
// the LCD panel while the mouse is over them.
#include <string>
#include <vector>

namespace wh {

class MainForm;

// The help of a button (by control name) in a language (1 English, anything
// else Romanian). The action buttons' help depends on the section showing.
std::vector<std::string> hover_lines(const std::string& control, int language, int section);

// The hover key of a button, as `lighton` holds it; empty for other controls.
std::string hover_key(const std::string& control);

// The pattern of MainForm::show_help with the control's help; the first
// time over `del` also brings the Harrow tip.
void hover(MainForm& form, const std::string& control);

// Wires the MouseMove of every control of the table to hover(), before the
// handler a page gave it.
void wire_hover(MainForm& form);

}  // namespace wh
