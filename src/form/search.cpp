// The search box that sections 1 and 9 share: typing selects the rows that
// hold the text, ENTER acts on them, CTRL+F puts the box away.
#include "core/text.h"
#include "form/mainu.h"
#include "platform/utf8.h"

namespace wh {

void Mainu::Text6_Change() {
  const std::string text = Text6.Text();
  if (search_target != 1) {
    startup_page.search_select(text);
    return;
  }
  ListBox& list = uninstall_page.List1;
  const std::string wanted = ucase(text);
  const bool enough = utf8::length(text) >= 3;  // three characters, not bytes
  for (int i = 0; i < list.ListCount(); ++i)
    list.Selected(i, enough && ucase(list.List(i)).find(wanted) != std::string::npos);
}

void Mainu::Text6_KeyPress(int& ascii) {
  if (ascii == 13) {
    const int hits =
        search_target == 1 ? uninstall_page.List1.SelCount() : startup_page.search_hits();
    if (hits > 0) del_Click();
    search.Visible(false);
  } else if (ascii == 27) {
    Text6.Text("");
  }
}

void Mainu::Text6_KeyDown(int& key, int shift) {
  if (key != 70 || shift != 2) return;
  search.Visible(false);
  if (search_target == 1)
    uninstall_page.List1.SetFocus();
  else if (search_target == 2)
    startup_page.focus_by_tab();
}

}  // namespace wh
