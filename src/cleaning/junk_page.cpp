#include "cleaning/junk_page.h"

#include "core/globals.h"
#include "platform/rt_error.h"

namespace wh {

namespace {
constexpr int twips = 15;
}  // namespace

JunkPage::JunkPage(MainForm& form, Frame& frame1_panel)
    : junk_form(form.add<Frame>("junk_form", page_place())),
      ocupied(form.add<Label>("ocupied", Place{420, 16, 190, 20, &junk_form})),
      pluginlist(form.add<ListBox>("pluginlist", Place{420, 44, 190, 200, &junk_form},
                                   ListBox::Options{.multi_select = multi_simple})),
      showplugins(form.add<ImageButton>("showplugins", extra_place(2))),
      Image22(form.add<ImageButton>("Image22", Place{0, 0, 16, 16})),
      Image23(form.add<ImageButton>("Image23", Place{0, 0, 16, 16})),
      Frame15(form.add<Frame>("Frame15", page_place())),
      Picture9(form.add<PictureBox>("Picture9", Place{8, 16, 176, 40, &Frame15})),
      Picture7(form.add<PictureBox>("Picture7", Place{8, 16, 600, 40, &Frame15})),
      junk_files(form.add<ListBox>("junk_files", Place{8, 60, 600, 260, &Frame15})),
      frame1(frame1_panel),
      form_(form) {
  for (int i = 1; i <= 18; ++i)
    check[i] = &form.add<CheckBox>("check(" + std::to_string(i) + ")",
                                   Place{8 + (i - 1) / 9 * 200, 16 + (i - 1) % 9 * 26, 190, 22,
                                         &junk_form});
  for (Control* c : std::initializer_list<Control*>{&junk_form, &showplugins, &Image22, &Image23,
                                                    &Frame15})
    c->Visible(false);
  junk_form.ZOrder(0);  // over the lists that sit on the form itself
  Frame15.ZOrder(0);
}

void JunkPage::enter() {
  if (ActiveSection == 8) return;
  form_.hide_section_extras();
  junk_form.Visible(true);
  frame1.Visible(true);
  showplugins.Visible(true);
  form_.light_section_button(form_.junk);
  ActiveSection = 8;
  form_.action_buttons(true, true, true);
  ocupied.Caption("0 bytes");
  collect_trace_paths();
  junk_scan();
}

void JunkPage::del_block() {}

void JunkPage::delall_block() {
  // 17, not 18: the index files are never harrowed by Harrow All.
  for (int i = 1; i <= 17; ++i) ignore_errors([&] { check[i]->Value(1); });
  for (int row = 0; row < pluginlist.ListCount(); ++row)
    ignore_errors([&] { pluginlist.Selected(row, true); });
  ignore_errors([&] { form_.del_Click(); });
}

void JunkPage::ref_block() {
  if (!Frame15.Visible()) {
    junk_scan();
    return;
  }
  junk_files.Clear();
  // Only the narrow layout names its category by the viewer's mode.
  if (Picture7.Left() * twips != 2850) {
    if (form_.viewer_mode == 1)
      form_.current_check_key = "CHECK2";
    else if (form_.viewer_mode == 3)
      form_.current_check_key = "CHECK11";
    else if (form_.viewer_mode == 4)
      form_.current_check_key = "CHECK12";
  }
  lupa_Click();
}

void JunkPage::hide_extras() {
  showplugins.Visible(false);
  junk_form.Visible(false);
}

void JunkPage::leave_for_options() {
  showplugins.Visible(false);
  form_.plain_section_button(form_.junk);
}

void JunkPage::captions(int) {}

// The refresh button tells the two layouts apart by Picture7's left edge:
// 2850 twips in the wide one only.
void JunkPage::famare() {
  const skin::Rect& c = skin::content;
  const int title_left = 2850 / twips_per_pixel_x();
  form_.del.Visible(false);
  form_.delall.Visible(false);
  Picture9.Move(8, 16, title_left - 14, 40);
  Frame15.Move(c.left, c.top, c.width, c.height);
  Picture7.Move(title_left, 16, c.width - title_left - 8, 40);
  junk_files.Move(8, 62, c.width - 16, c.height - 70);
  junk_files.Clear();
  Frame15.Visible(true);
}

void JunkPage::famic() {
  const skin::Rect& c = skin::content;
  const int width = 230;
  form_.del.Visible(false);
  form_.delall.Visible(false);
  Picture9.Move(8, 16, width - 16, 24);
  Frame15.Move(c.left + c.width - width, c.top, width, c.height);
  Picture7.Move(8, 44, width - 16, 40);
  junk_files.Move(8, 90, width - 16, c.height - 98);
  junk_files.Clear();
  Frame15.Visible(true);
}

void JunkPage::collect_trace_paths() {}
void JunkPage::junk_scan() {}
void JunkPage::lupa_Click() {}
bool JunkPage::scan_plugins() { return false; }

}  // namespace wh
