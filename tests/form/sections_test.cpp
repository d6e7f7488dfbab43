// Switching sections and the three action buttons, on a main form whose
// still-empty section blocks record that they were reached.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "core/text.h"
#include "support/form_test.h"
#include "platform/files.h"
#include "support/scratch.h"

using namespace wh;
using wh::test::shows;
using Names = std::vector<std::string>;

namespace {

class Probe : public Mainu {
public:
  Names calls;

  void note(const std::string& what) { calls.push_back(what); }

  void del_duplicates() override {
    note("del_duplicates");
    ActiveSection = 9;  // a block that moves the section runs no other block
  }
  void del_junk() override {
    note("del_junk");
    ticked_when_harrowed = 0;
    for (int i = 1; i <= 18; ++i) ticked_when_harrowed += junk_page.check[i]->Value();
  }
#define NOTED(block) \
  void block() override { note(#block); }
  NOTED(del_startup_items) NOTED(del_uninstall) NOTED(del_tasks) NOTED(del_split)
  NOTED(del_disk_explorer) NOTED(del_floppy) NOTED(del_shred) NOTED(delall_tasks)
  NOTED(ref_startup) NOTED(ref_junk) NOTED(ref_uninstall) NOTED(ref_tasks)
  NOTED(ref_disk_explorer) NOTED(ref_split) NOTED(ref_floppy) NOTED(ref_shred)
#undef NOTED

  int ticked_when_harrowed = -1;  // category boxes ticked when the junk block ran
};

class Sections : public wh::test::StoreTest {
protected:
  void SetUp() override {
    StoreTest::SetUp();
    save_setting("runed", "3");  // no first run, no tips
    save_setting("readed 0.95", "1");
    form = std::make_unique<Probe>();
    raise_event([&] { form->ordinary_start(); });
  }
  void TearDown() override {
    form.reset();
    StoreTest::TearDown();
  }
  // The extras that entries show or hide, in this order, those showing.
  Names shown_extras() {
    Probe& m = *form;
    Names names;
    for (Control* c : std::initializer_list<Control*>{
             &m.startup_page.umb_up, &m.uninstall_page.PIE, &m.uninstall_page.QM,
             &m.uninstall_page.lupe, &m.search, &m.junk_page.showplugins, &m.disk_page.explorer,
             &m.uninstall_page.talpa, &m.uninstall_page.delfolder, &m.task_page.frogsus, &m.frame1,
             &m.split_page.splitbox, &m.disk_page.Frame5, &m.floppy_page.Frame6,
             &m.shred_page.Frame8, &m.startup_page.RUNframe, &m.junk_page.junk_form,
             &m.duplicates_page.finddups, &m.options.optiuni})
      if (c->Visible()) names.push_back(c->Name());
    return names;
  }
  std::unique_ptr<Probe> form;
};

}  // namespace

TEST_F(Sections, EachEntryShowsItsOwnSetAndLightsOnlyItsButton) {
  Probe& m = *form;
  struct Entry {
    void (Mainu::*handler)();
    int section;
    Names shown;
    bool del, delall, ref;
    ImageButton& button;
    const char *lit, *plain;
  };
  const std::vector<Entry> entries = {
      // The scan behind the entry shows QM: sizes not known yet.
      {&Mainu::uninstall_Click, 1, {"PIE", "QM", "delfolder"}, 1, 0, 1, m.uninstall, "DEZ_SUS",
       "DEZ_JOS"},
      {&Mainu::task_Click, 2, {"frogsus", "frame1"}, 1, 1, 1, m.task, "TASK_SUS", "TASK_JOS"},
      {&Mainu::splity_Click, 3, {"splitbox"}, 1, 0, 1, m.splity, "SPLITSUS", "SPLITJOS"},
      {&Mainu::dirinfo_Click, 4, {"explorer", "Frame5"}, 1, 0, 1, m.dirinfo, "DIRINFO_SUS",
       "DIRINFO_JOS"},
      {&Mainu::kila_Click, 5, {"Frame6"}, 1, 0, 1, m.kila, "KILLA_SUS", "KILLA_JOS"},
      {&Mainu::shred_Click, 6, {"Frame8"}, 1, 0, 1, m.shred, "SHRED_SUS", "SHRED_JOS"},
      {&Mainu::junk_Click, 8, {"showplugins", "frame1", "junk_form"}, 1, 1, 1, m.junk, "JUNK_SUS",
       "JUNK_JOS"},
      {&Mainu::RUN_Click, 9, {"umb_up", "RUNframe"}, 1, 0, 1, m.RUN, "RUN_SUS", "RUN_JOS"},
      {&Mainu::dupy_Click, 10, {"finddups"}, 0, 0, 0, m.dupy, "DUP_SUS", "DUP_JOS"},
  };
  // Each from every other, so that the leftovers of any section would show.
  for (const Entry& from : entries) {
    for (const Entry& to : entries) {
      if (from.section == to.section) continue;
      (m.*from.handler)();
      m.uninstall_page.talpa.Visible(true);  // shown by a row choice in section 1
      (m.*to.handler)();
      SCOPED_TRACE(std::to_string(from.section) + " -> " + std::to_string(to.section));
      EXPECT_EQ(to.section, ActiveSection);
      EXPECT_EQ(to.shown, shown_extras());
      EXPECT_EQ(std::vector<bool>({to.del, to.delall, to.ref}),
                std::vector<bool>({m.del.Visible(), m.delall.Visible(), m.ref.Visible()}));
      for (const Entry& other : entries)
        EXPECT_TRUE(shows(other.button, &other == &to ? other.lit : other.plain))
            << other.button.Name();
    }
  }
}

TEST_F(Sections, TheButtonOfTheShownSectionDoesNothingButDirinfoRunsAgain) {
  Probe& m = *form;
  m.displaytips = true;  // a first start: section 1's tip comes once in the run
  for (void (Mainu::*handler)() :
       {&Mainu::uninstall_Click, &Mainu::task_Click, &Mainu::splity_Click, &Mainu::junk_Click,
        &Mainu::RUN_Click, &Mainu::dupy_Click, &Mainu::shred_Click, &Mainu::kila_Click,
        &Mainu::dirinfo_Click}) {
    (m.*handler)();
    // Shown by a row choice in section 1; a second entry that ran would
    // hide it with the other extras.
    m.uninstall_page.talpa.Visible(true);
    (m.*handler)();
    const bool again = handler == &Mainu::dirinfo_Click;
    EXPECT_EQ(!again, m.uninstall_page.talpa.Visible()) << ActiveSection;
    if (handler == &Mainu::uninstall_Click) {
      EXPECT_TRUE(m.quicktip.Visible());
    }
    m.quicktip.Visible(false);
  }
  m.uninstall_Click();
  EXPECT_FALSE(m.quicktip.Visible());
}

TEST_F(Sections, OptionsUndoOnlyWhatTheSectionLeftPutUpAndListByLanguage) {
  Probe& m = *form;
  save_setting("mod", "Split Files");
  m.splity_Click();
  m.Image11_Click();
  EXPECT_EQ(7, ActiveSection);
  EXPECT_TRUE(m.options.optiuni.Visible());
  EXPECT_TRUE(m.split_page.splitbox.Visible());  // left standing under the page
  EXPECT_TRUE(shows(m.splity, "SPLITJOS"));
  EXPECT_FALSE(m.del.Visible() || m.ref.Visible());

  m.task_Click();
  m.Image11_Click();
  EXPECT_FALSE(m.task_page.frogsus.Visible());
  EXPECT_TRUE(m.frame1.Visible() && m.delall.Visible());  // only del and ref go

  ComboBox& combo = m.options.Combo1;
  EXPECT_EQ("Split Files", combo.Text());
  EXPECT_EQ("Disk Space Explorer", combo.List(4));
  language_flag = 2;
  m.Image11_Click();  // again: a refill in the language now in use
  ASSERT_EQ(9, combo.ListCount());
  EXPECT_EQ("DirInfo", combo.List(4));

  m.shred_Click();  // any section brings del and ref back
  EXPECT_TRUE(m.del.Visible() && m.ref.Visible());
}

TEST_F(Sections, DelAndRefRunExactlyTheBlockOfTheSectionTheyFound) {
  Probe& m = *form;
  struct Block {
    const char *del, *ref;
  };
  const Block blocks[] = {{"", ""},
                          {"del_uninstall", "ref_uninstall"},
                          {"del_tasks", "ref_tasks"},
                          {"del_split", "ref_split"},
                          {"del_disk_explorer", "ref_disk_explorer"},
                          {"del_floppy", "ref_floppy"},
                          {"del_shred", "ref_shred"},
                          {"", ""},
                          {"del_junk", "ref_junk"},
                          {"del_startup_items", "ref_startup"},
                          {"del_duplicates", ""}};
  for (int section = 0; section <= 10; ++section) {
    for (bool del : {true, false}) {
      m.calls.clear();
      ActiveSection = static_cast<uint8_t>(section);
      del ? m.del_Click() : m.ref_Click();
      const char* block = del ? blocks[section].del : blocks[section].ref;
      EXPECT_EQ(*block ? Names{block} : Names{}, m.calls) << section << (del ? " del" : " ref");
    }
  }
}

TEST_F(Sections, HarrowAllInJunkTicksAllButTheIndexFilesAndNeverEnds) {
  Probe& m = *form;
  save_setting("harrowall", "true");
  m.junk_Click();
  m.junk_page.pluginlist.AddItem("a plug-in");
  for (int left_as : {0, 1}) {
    for (int i = 1; i <= 18; ++i) m.junk_page.check[i]->Value(i == 18 ? left_as : 0);
    m.calls.clear();
    m.delall_Click();  // the fixture's end hook fails the test on an end
    EXPECT_EQ(Names{"del_junk"}, m.calls);
    EXPECT_EQ(17 + left_as, m.ticked_when_harrowed);
    EXPECT_EQ(left_as, m.junk_page.check[18]->Value());
    EXPECT_EQ(1, m.junk_page.pluginlist.SelCount());
  }
}

TEST_F(Sections, HarrowAllEndsTheProgramOnlyFromTasks) {
  Probe& m = *form;
  m.task_Click();
  m.delall_Click();  // "harrowall" missing: no end
  EXPECT_EQ(Names{"delall_tasks"}, m.calls);

  save_setting("harrowall", "true");
  {
    EndHook end;
    EXPECT_THROW(m.delall_Click(), ProgramEnded);
  }
  EXPECT_EQ((Names{"delall_tasks", "delall_tasks"}), m.calls) << "the end came after the kills";
  m.Image11_Click();
  m.delall_Click();  // the same setting ends nothing elsewhere
}
