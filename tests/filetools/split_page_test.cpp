// The split section's page on a small test form: the tabs, the preview, the
// size field's keys, the action's messages and the drops.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/globals.h"
#include "core/text.h"
#include "filetools/split_page.h"
#include "filetools/splitter.h"
#include "support/scratch.h"
#include "support/test_form.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::ScratchDir;
using wh::test::TestForm;

namespace {

class SplitSection : public ::testing::Test {
protected:
  void SetUp() override {
    language_flag = 1;
    ActiveSection = 0;
    form.handlers["splity_Click"] = [this] { page.enter(); };
    form.handlers["hide_section_extras"] = [this] { page.hide_extras(); };
    page.enter();
  }
  void TearDown() override { language_flag = 1; }
  // Picks a file through the lists, as a click would.
  void pick(const std::string& folder, const std::string& name) {
    page.dir1.Path(folder);
    for (int i = 0; i < page.File1.ListCount(); ++i)
      if (page.File1.List(i) == name) page.File1.ListIndex(i);
  }
  void type(int ch) { page.size.send(WM_CHAR, ch, 1); }

  TestForm form;
  SplitPage page{form};
};

TEST_F(SplitSection, EnteringShowsTheSplitTabWithTheFloppySizeAndTheTabsSwap) {
  EXPECT_EQ(3, ActiveSection);
  EXPECT_TRUE(page.splitbox.Visible());
  EXPECT_TRUE(page.Option1.Value());
  EXPECT_FALSE(page.size.Enabled());
  EXPECT_FALSE(page.Frame4.Visible());

  ScratchDir dir("split_page_tabs");
  const std::string file = dir.file("a.bin", "abc");
  pick(dir.path(), "a.bin");
  EXPECT_EQ(file, page.calefisier.Caption());
  page.Label2_Click();
  EXPECT_FALSE(page.split_mode());
  EXPECT_EQ("file path", page.calefisier.Caption());
  EXPECT_EQ(dir.path(), page.dirdest.Caption());
  EXPECT_EQ(-1, page.File1.ListIndex());
  EXPECT_TRUE(page.Frame4.Visible());
  EXPECT_FALSE(page.Frame2.Visible() || page.Frame3.Visible());
  page.Label1_Click();
  EXPECT_TRUE(page.split_mode());
}

TEST_F(SplitSection, ThePreviewCountsFragmentsWithTheExactDivisionSlip) {
  ScratchDir dir("split_page_preview");
  dir.file("five.bin", std::string(5 * 1048576, 'f'));
  dir.file("small.txt", "tiny");
  EXPECT_EQ("", page.preview_text()) << "no file chosen";
  pick(dir.path(), "five.bin");
  EXPECT_EQ("5 MB", trim(page.Label4.Caption()));
  EXPECT_EQ("The file will be splited in 4 fragments", page.preview_text());
  page.Option2.Value(true);
  EXPECT_TRUE(page.size.Enabled());
  EXPECT_EQ("", page.preview_text()) << "an empty size prints nothing";
  page.size.Text("1");
  EXPECT_EQ("The file will be splited in 5242880 fragments", page.preview_text());
  page.size.Text("2");
  EXPECT_EQ("The file will be splited in 3 fragments", page.preview_text());
  page.size.Text("0");
  EXPECT_EQ("", page.preview_text());
  pick(dir.path(), "small.txt");
  page.Option1.Value(true);
  EXPECT_EQ("The file will be splited in 1 fragment", page.preview_text());
}

TEST_F(SplitSection, TheSizeFieldTakesDigitsAndTheLocaleSymbolOnly) {
  page.Option2.Value(true);
  const char symbol = locale_decimal();
  const char wrong = symbol == '.' ? ',' : '.';
  ScriptedDialogs boxes;
  for (int ch : {'1', 'x', '-', '0', symbol, '5'}) type(ch);
  EXPECT_EQ(std::string("10") + symbol + "5", page.size.Text());
  EXPECT_EQ(0u, boxes.count());
  type(wrong);
  EXPECT_EQ(std::string("10") + symbol + "5", page.size.Text()) << "nothing inserted";
  ASSERT_EQ(1u, boxes.count());
  EXPECT_EQ(std::string("The decimal symbol is \"") + symbol + "\"", boxes.last().text);
  EXPECT_EQ(static_cast<unsigned>(MB_ICONEXCLAMATION), boxes.last().style & MB_ICONMASK);
  type(VK_BACK);
  EXPECT_EQ(std::string("10") + symbol, page.size.Text());
}

TEST_F(SplitSection, TheActionRefusesWhatItCannotSplit) {
  ScratchDir dir("split_page_refused");
  const std::string file = dir.file("small.bin", std::string(20000, 's'));
  ScriptedDialogs boxes;
  page.del_block();
  EXPECT_EQ("First you have to choose a file!", boxes.last().text);
  page.calefisier.Caption(dir / "gone.bin");
  page.del_block();
  EXPECT_EQ("File not found!", boxes.last().text);
  EXPECT_EQ(dir / "gone.bin", page.calefisier.Caption()) << "not put back";
  page.calefisier.Caption(file);
  page.Option2.Value(true);
  page.del_block();
  EXPECT_EQ("You have to specify the split size!", boxes.last().text);
  page.size.Text("1");
  page.del_block();
  EXPECT_EQ("The split size is larger than the size of the file to be splited!", boxes.last().text);
  EXPECT_EQ(0u, boxes.last().style) << "a plain box in English";
  page.size.Text("0.00001");  // 10 bytes: 2000 fragments
  page.del_block();
  EXPECT_NE(std::string::npos, boxes.last().text.find("resulted in 1000 or more segment files."));
  EXPECT_EQ("file path", page.calefisier.Caption());
  page.calefisier.Caption(file);
  page.size.Text("1");
  // Option1 does not spare the test: the field's old value still counts;
  // the Romanian box carries a stop sign.
  page.Option1.Value(true);
  language_flag = 2;
  page.del_block();
  ASSERT_EQ(6u, boxes.count());
  EXPECT_EQ(static_cast<unsigned>(MB_ICONSTOP), boxes.last().style & MB_ICONMASK);
  EXPECT_EQ(20000u, test::read_file(file).size());
  EXPECT_FALSE(path_exists(dir / "merge(small.bin).bat"));
}

TEST_F(SplitSection, ASplitLeavesFragmentsAndTheBatchFileAndSaysSo) {
  ScratchDir dir("split_page_split");
  dir.file("report.dat", std::string(25000, 'r'));
  pick(dir.path(), "report.dat");
  page.Option2.Value(true);
  page.size.Text("0.01");  // 10486 bytes
  ScriptedDialogs boxes;
  page.del_block();
  ASSERT_EQ(1u, boxes.count());
  EXPECT_EQ("Split completed successfully. The file was splitted into 3 parts.\r\n\r\n"
            "To merge the splited files run merge(report.dat).bat",
            boxes.last().text);
  EXPECT_EQ(0u, boxes.last().style);
  EXPECT_TRUE(path_exists(dir / "merge(report.dat).bat"));
  EXPECT_EQ(3, std::count(fragment_list.begin(), fragment_list.end(), '+'));
  EXPECT_EQ("file path", page.calefisier.Caption());
  EXPECT_EQ(5, page.File1.ListCount()) << "the list shows the fragments";
}

TEST_F(SplitSection, DropsPointAtAFileOrAtTheFirstFragmentOfTheOldNaming) {
  ScratchDir dir("split_page_drops");
  const std::string plain = dir.file("plain.bin", "p");
  const std::string first = dir.file("old\xC2\xAE" "1", "1");
  const std::string second = dir / "old\xC2\xAE" "2";
  ScriptedDialogs boxes;

  // Label4 in split mode takes anything.
  fire(page.Label4.OLEDragDrop, std::vector<std::string>{"C:\\nowhere.txt"});
  EXPECT_EQ("C:\\nowhere.txt", page.calefisier.Caption());

  fire(page.Label2.OLEDragDrop, std::vector<std::string>{second});
  EXPECT_FALSE(page.split_mode());
  EXPECT_EQ(first, page.calefisier.Caption());
  EXPECT_EQ(dir.path(), page.dirdest.Caption());

  fire(page.Label2.OLEDragDrop, std::vector<std::string>{dir / "lost\xC2\xAE" "7"});
  ASSERT_EQ(1u, boxes.count());
  EXPECT_EQ("First piece does not exist   (" + dir / "lost\xC2\xAE" "1 )", boxes.last().text);
  fire(page.Label4.OLEDragDrop, std::vector<std::string>{dir / "lost\xC2\xAE" "7"});
  EXPECT_EQ("First piece does not exist!   (" + dir / "lost\xC2\xAE" "1 )", boxes.last().text);

  // A plain file on the section's button from elsewhere enters the section.
  ActiveSection = 7;
  form.calls.clear();
  fire(form.splity.OLEDragDrop, std::vector<std::string>{plain});
  EXPECT_EQ(std::vector<std::string>{"splity_Click"},
            std::vector<std::string>(form.calls.begin(), form.calls.begin() + 1));
  EXPECT_EQ(3, ActiveSection);
  EXPECT_EQ(plain, page.calefisier.Caption());
  // On Label2 a plain file does nothing.
  page.calefisier.Caption("kept");
  fire(page.Label2.OLEDragDrop, std::vector<std::string>{plain});
  EXPECT_EQ("kept", page.calefisier.Caption());

  // Label1 goes back to splitting; calefisier takes only what exists.
  page.Label2_Click();
  fire(page.Label1.OLEDragDrop, std::vector<std::string>{plain});
  EXPECT_TRUE(page.split_mode());
  EXPECT_EQ(plain, page.calefisier.Caption());
  page.Picture3.Visible(true);
  fire(page.calefisier.OLEDragDrop, std::vector<std::string>{dir / "none.bin"});
  EXPECT_FALSE(page.Picture3.Visible());
  EXPECT_EQ(plain, page.calefisier.Caption());
  EXPECT_EQ(2u, boxes.count());
}

TEST_F(SplitSection, TheDropHintShowsInSplitModeAndForOldFragmentsInMergeMode) {
  page.Form_OLEDragOver({"C:\\x.bin"});
  EXPECT_TRUE(page.Picture3.Visible());
  page.Picture3.Visible(false);
  page.Label2_Click();
  page.Form_OLEDragOver({"C:\\x.bin"});
  EXPECT_FALSE(page.Picture3.Visible());
  // The registered sign is a character: the byte AE inside another one
  // ("宮", E5 AE AE) is no sign.
  page.Form_OLEDragOver({"C:\\\xE5\xAE\xAE" "2"});
  EXPECT_FALSE(page.Picture3.Visible());
  page.Form_OLEDragOver({"C:\\x\xC2\xAE" "2"});
  EXPECT_TRUE(page.Picture3.Visible());
  page.Picture3.Visible(false);
  // A drag over the page's lists and frames is the section's drag.
  fire(page.dir1.OLEDragOver, std::vector<std::string>{"C:\\x\xC2\xAE" "2"});
  EXPECT_TRUE(page.Picture3.Visible());
  page.Picture3.Visible(false);
  ActiveSection = 6;
  page.Form_OLEDragOver({"C:\\x\xC2\xAE" "2"});
  EXPECT_FALSE(page.Picture3.Visible());
}

// Boxes answered OK; when the box asks for the next disk, the test takes
// the disk out: A:'s contents move to a folder of their own.
class DiskSwapper : public DialogService {
public:
  explicit DiskSwapper(const ScratchDir& dir) : dir_(dir) {}
  int msg_box(const std::string& text, unsigned style, const std::string&) override {
    boxes.push_back({text, style});
    if (text.rfind("Remove the disk", 0) == 0) {
      const std::string disk = dir_.folder("disk" + std::to_string(++disks));
      for (const std::string& n : test::names_in("A:"))
        MoveFileA(("A:\\" + n).c_str(), (disk + "\\" + n).c_str());
    }
    return IDOK;
  }
  std::vector<std::pair<std::string, unsigned>> boxes;
  int disks = 0;

private:
  const ScratchDir& dir_;
  DialogScope scope_{*this};
};

class Spanning : public SplitSection {
protected:
  void SetUp() override {
    ASSERT_TRUE(path_exists("A:\\")) << "the test prefix maps A: to a folder";
    clear_a();
    SplitSection::SetUp();
  }
  void TearDown() override {
    clear_a();
    SplitSection::TearDown();
  }
  static void clear_a() {
    for (const std::string& n : test::names_in("A:")) test::remove_tree("A:\\" + n);
  }
  void split_to_floppies(const std::string& file, const std::string& megabytes) {
    page.calefisier.Caption(file);
    page.Option2.Value(true);
    page.size.Text(megabytes);
    page.Check8.Value(1);
    page.del_block();
  }
};

TEST_F(Spanning, ThreeFragmentsGoOneToADiskAndTheBatchFileToTheLast) {
  ScratchDir dir("split_page_span");
  const std::string content = std::string(12000, 'x') + std::string(13000, 'y');
  const std::string file = dir.file("src\\movie.avi", content);
  DiskSwapper swapper(dir);
  split_to_floppies(file, "0.01");  // 10486-byte fragments: three

  ASSERT_EQ(2, swapper.disks);
  const std::string base = split_short_name.substr(0, split_short_name.rfind('.'));
  EXPECT_EQ(content.substr(0, 10486), test::read_file(dir / "disk1\\" + base + ".001"));
  EXPECT_EQ(content.substr(10486, 10486), test::read_file(dir / "disk2\\" + base + ".002"));
  EXPECT_FALSE(path_exists(dir / "disk1\\merge(movie.avi).bat"));
  EXPECT_FALSE(path_exists(dir / "disk2\\merge(movie.avi).bat"));
  EXPECT_EQ((std::vector<std::string>{"merge(movie.avi).bat", base + ".003"}), test::names_in("A:"));
  EXPECT_EQ(content.substr(2 * 10486), test::read_file("A:\\" + base + ".003"));
  // The fragments left the source's folder; the batch file was copied.
  EXPECT_FALSE(path_exists(dir / "src\\" + base + ".001"));
  EXPECT_TRUE(path_exists(dir / "src\\merge(movie.avi).bat"));

  const auto& b = swapper.boxes;
  ASSERT_EQ(5u, b.size());
  EXPECT_EQ(0u, b[0].first.find("Split completed successfully."));
  EXPECT_EQ(0u, b[1].first.find("You need 3 formatted floppy disks."));
  EXPECT_EQ(b[2].first, b[3].first);
  EXPECT_NE(std::string::npos, b[4].first.find("run merge(movie.avi).bat"));
}

TEST_F(Spanning, AnExactDivisionCountsTooManyDisksAndTheCountWrapsToNoDisk) {
  ScratchDir dir("split_page_span_exact");
  // 64 KiB fragments: 4 exactly, announced as 262144, which is 0 in 16 bits.
  const std::string file = dir.file("src\\exact.bin", std::string(4 * 65536, 'e'));
  DiskSwapper swapper(dir);
  split_to_floppies(file, "0.0625");
  ASSERT_EQ(2u, swapper.boxes.size());
  EXPECT_EQ(0u, swapper.boxes[1].first.find("You need 262144 formatted floppy disks."));
  EXPECT_TRUE(test::names_in("A:").empty());
  const std::string base = split_short_name.substr(0, split_short_name.rfind('.'));
  EXPECT_TRUE(path_exists(dir / "src\\" + base + ".004")) << "the fragments stay";
}

}  // namespace
