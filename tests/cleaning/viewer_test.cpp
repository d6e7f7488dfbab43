// The trace viewer: the scanners on files the tests write, the histories on
// keys they write, the clipboard, and the panel itself on a test form.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cleaning/junk_page.h"
#include "cleaning/junk_state.h"
#include "cleaning/junk_support.h"
#include "cleaning/viewer.h"
#include "core/globals.h"
#include "core/routines.h"
#include "platform/clipboard.h"
#include "support/scratch.h"
#include "support/test_form.h"

using namespace wh;
using wh::test::make_key;
using wh::test::MadeKey;
using wh::test::path_exists;
using wh::test::ScratchDir;
using Lines = std::vector<std::string>;

namespace {

using wh::test::rows;

const std::string kExplorer = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";
const std::string kSid = "S-1-5-21-1644491937-152049171-842925246-1003";
const std::string kAcMru = kSid + "\\Software\\Microsoft\\Search Assistant\\ACMru";
const std::string kTyped = "Software\\Microsoft\\Internet Explorer\\TypedURLs";

// Each piece at the start of its own 60 bytes, so that no scheme word meets
// a 30-byte mark by chance; the scanners' state starts afresh.
std::string blocks(const Lines& pieces) {
  url_scan_state = {};
  std::string bytes;
  for (const std::string& piece : pieces) bytes += piece + std::string(60 - piece.size(), '.');
  return bytes;
}

TEST(TraceViewer, IndexFileAddressesEndAtABlankOrZero) {
  ScratchDir dir("viewer_index");
  const std::string path = dir.file(
      "index.dat", blocks({"\x01http://a.ro/x y", std::string("\0file:///C:/My%20Docs/\0", 23),
                           " CoOkIe:user@site.ro/ ", std::string(" http://b.ro:8080/p\0", 20),
                           " http://c.ro/ftp://d.ro/ ", "\x02http://open.ro/at-the-end"}));
  test::TestForm form;
  ListBox& list = form.add<ListBox>("junk_files", Place{0, 0, 300, 200});
  scan_index_file(list, path);
  EXPECT_EQ((Lines{"http://a.ro/x", "C:/My Docs", "cookie:user@site.ro", "http://b.ro:8080/p",
                   // the ftp word itself is lost, its address joins the last one
                   "http://c.ro/ftp//d.ro"}),
            rows(list));
}

TEST(TraceViewer, AnOpenAddressIsNotAddedAtTheEndButGoesOnInTheNextFile) {
  ScratchDir dir("viewer_open");
  const std::string first = dir.file("a.dat", blocks({" http://open.ro/a"}) + "bc");
  EXPECT_EQ(Lines{}, scan_url_file(first, UrlScanner::index_file));
  // A missing file is made, empty, and gives nothing.
  const std::string missing = dir / "missing.dat";
  EXPECT_EQ(Lines{}, scan_url_file(missing, UrlScanner::index_file));
  EXPECT_TRUE(path_exists(missing));
  const std::string next = dir.file("b.dat", "de fg ");
  EXPECT_EQ((Lines{"http://open.ro/a" + std::string(60 - 17, '.') + "bcde"}),
            scan_url_file(next, UrlScanner::index_file));
  url_scan_state = {};
}

// The refresh shows the viewer again by its layout, or scans.
class ProbeJunk : public JunkPage {
public:
  ProbeJunk(MainForm& form, test::JunkShared& s)
      : JunkPage(form, s.frame1, s.File1, s.Dir3, s.Drive1, s.k1), form_(form) {}
  Lines calls;
  void junk_scan() override { calls.push_back("junk_scan"); }
  void lupa_Click() override { calls.push_back("lupa_Click:" + form_.current_check_key); }

private:
  MainForm& form_;
};

TEST(TraceViewer, RefreshScansOrShowsTheViewerAgainByItsLayout) {
  test::TestForm form;
  test::JunkShared shared(form);
  ProbeJunk page(form, shared);
  page.ref_block();
  page.Frame15.Visible(true);
  page.junk_files.AddItem("old line");
  // The narrow layout: the key follows what the viewer shows.
  form.current_check_key = "CHECK13";
  form.viewer_mode = 3;
  page.ref_block();
  EXPECT_EQ(0, page.junk_files.ListCount());
  // The wide one, told apart by the title's left edge of 2850 twips.
  page.Picture7.Left(2850 / 15);
  form.current_check_key = "CHECK13";
  page.ref_block();
  EXPECT_EQ((Lines{"junk_scan", "lupa_Click:CHECK11", "lupa_Click:CHECK13"}), page.calls);
}

class ViewerPage : public ::testing::Test {
protected:
  ViewerPage() { language_flag = 1; }
  ~ViewerPage() override { language_flag = 0; }

  test::TestForm form;
  test::JunkShared shared{form};
  test::JunkWorld world;
  JunkPage page{form, shared.frame1, shared.File1, shared.Dir3, shared.Drive1, shared.k1};

  void view(const std::string& key) {
    form.current_check_key = key;
    page.lupa_Click();
  }
};

TEST_F(ViewerPage, RunHistoryFollowsMruListWithoutTheEndMark) {
  MadeKey run(HKEY_CURRENT_USER, kExplorer + "RunMRU");
  make_key(HKEY_CURRENT_USER, kExplorer + "RunMRU",
           {{"a", "notepad\\1"}, {"b", "cmd /k dir\\1"}, {"c", "x"}, {"MRUList", "bca"}});
  view("CHECK11");
  EXPECT_TRUE(page.Frame15.Visible());
  EXPECT_FALSE(form.del.Visible());
  EXPECT_EQ(3, form.viewer_mode);
  // "c" is too short to lose two characters: no line.
  EXPECT_EQ((Lines{"cmd /k dir", "notepad"}), rows(page.junk_files));
  // The narrow layout, which the refresh tells by the title's edge.
  EXPECT_NE(2850, page.Picture7.Left() * twips_per_pixel_x());
}

TEST_F(ViewerPage, SearchHistoryStopsWholeAtAFullBuffer) {
  MadeKey user(HKEY_USERS, kSid);
  make_key(HKEY_USERS, kAcMru + "\\5603", {{"000", "letter"}, {"001", "*.doc"}});
  const std::string full(254, 'f');  // 255 bytes with its NUL
  make_key(HKEY_USERS, kAcMru + "\\5604", {{"000", full.c_str()}, {"001", "after"}});
  make_key(HKEY_USERS, kAcMru + "\\5605", {{"000", "never"}});
  // Empty data gives no line.
  HKEY k = nullptr;
  RegOpenKeyA(HKEY_USERS, (kAcMru + "\\5603").c_str(), &k);
  RegSetValueExA(k, "002", 0, REG_BINARY, nullptr, 0);
  RegCloseKey(k);

  view("CHECK12");
  EXPECT_EQ(4, form.viewer_mode);
  EXPECT_EQ((Lines{"letter", "*.doc", full}), rows(page.junk_files));
}

TEST_F(ViewerPage, ClipboardPictureWinsOverItsText) {
  HDC screen = GetDC(nullptr);
  HBITMAP bitmap = CreateCompatibleBitmap(screen, 16, 16);
  ReleaseDC(nullptr, screen);
  HGLOBAL text = GlobalAlloc(GMEM_MOVEABLE, 6);
  memcpy(GlobalLock(text), "words", 6);
  GlobalUnlock(text);
  ASSERT_TRUE(OpenClipboard(form.hwnd()));
  EmptyClipboard();
  SetClipboardData(CF_BITMAP, bitmap);
  SetClipboardData(CF_TEXT, text);
  CloseClipboard();

  view("CHECK13");
  EXPECT_EQ(5, form.viewer_mode);
  EXPECT_EQ(2850, page.Picture7.Left() * twips_per_pixel_x());  // wide
  EXPECT_TRUE(page.Picture8.Visible());
  EXPECT_NE(nullptr, page.Image14.picture());
  EXPECT_FALSE(page.Text2.Visible());
  EXPECT_EQ("", page.Text2.Text());

  page.Label30_Click();
  EXPECT_FALSE(page.Picture8.Visible());
  EXPECT_FALSE(page.Frame15.Visible());
  EXPECT_TRUE(form.del.Visible());
  EXPECT_TRUE(form.ref.Visible());

  clipboard_set_text("just text", form.hwnd());
  view("CHECK13");
  EXPECT_FALSE(page.Picture8.Visible());
  EXPECT_TRUE(page.Text2.Visible());
  EXPECT_EQ("just text", page.Text2.Text());
  ASSERT_TRUE(OpenClipboard(form.hwnd()));
  EmptyClipboard();
  CloseClipboard();
}

TEST_F(ViewerPage, JunkItemsWithTheirSizesThenTypedUrlsWithOperasList) {
  put_item(junk_folder_items, 1, JunkItem{"C:\\FOUND.000", 2048});
  put_item(junk_file_items, 1, JunkItem{"C:\\a.chk", 10});
  put_item(junk_file_items, 2, JunkItem{"C:\\b.gid", 0});
  view("CHECK2");
  double kb = 2048, ten = 10, none = 0;
  EXPECT_EQ((Lines{"C:\\FOUND.000 (" + spatiuu(kb) + ")", "", "C:\\a.chk (" + spatiuu(ten) + ")",
                   "C:\\b.gid (" + spatiuu(none) + ")"}),
            rows(page.junk_files));

  MadeKey typed(HKEY_CURRENT_USER, kTyped);
  make_key(HKEY_CURRENT_USER, kTyped, {{"url1", "http://a.ro/"}, {"url2", "b.ro"}, {"url4", "no"}});
  opera_folder = world.dir.folder("Opera");
  world.dir.file("Opera\\Profile\\vlink4.dat", "x\x04http://o.ro/\n");
  url_scan_state = {};
  view("CHECK16");
  EXPECT_EQ(7, form.viewer_mode);
  EXPECT_EQ((Lines{"IE TYPED URLS:", "http://a.ro/", "b.ro", "", "OPERA TYPED URLS:", "http://o.ro"}),
            rows(page.junk_files));
}

TEST_F(ViewerPage, IndexFilesOfTheCacheTheHistoryTreeAndTheCookies) {
  world.dir.file("cache\\Content.IE5\\index.dat", " http://cache.ro/ ");
  world.dir.file("history\\History.IE5\\index.dat", " http://h1.ro/ ");
  world.dir.file("history\\History.IE5\\MSHist01\\INDEX.DAT", " http://h2.ro/ ");
  world.dir.file("history\\other.dat", " http://no.ro/ ");
  world.dir.file("cookies\\index.dat", " Cookie:me@c.ro/ ");
  url_scan_state = {};
  view("CHECK18");
  EXPECT_EQ(2, form.viewer_mode);
  EXPECT_EQ((Lines{"Content of INDEX.DAT in TEMPORARY INTERNET FILES folder:", "http://cache.ro", "",
                   "Content of INDEX.DAT in HISTORY folder:", "http://h1.ro", "http://h2.ro", "",
                   "Content of INDEX.DAT in COOKIES folder:", "cookie:me@c.ro"}),
            rows(page.junk_files));
}

TEST_F(ViewerPage, HistoryOfTheCacheThenOperaAndFirefox) {
  opera_folder = world.dir.folder("Opera");
  world.dir.file("Opera\\Profile\\global.dat", "x http://g.ro/a%20b\nfile://C:/d\x04");
  firefox_folder = world.dir.folder("Firefox");
  firefox_profile = world.dir.folder("Firefox\\p") + "\\";
  world.dir.file("Firefox\\p\\history.dat", "(URL=http://f.ro/)");
  url_scan_state = {};
  view("CHECK15");
  EXPECT_EQ(6, form.viewer_mode);
  const Lines lines = rows(page.junk_files);
  EXPECT_EQ("INTERNET EXPLORER HISTORY:", lines[0]);
  EXPECT_EQ(1, page.history_first_line);
  // Whatever the prefix's cache holds lies between the two marks.
  const Lines rest(lines.begin() + page.history_last_line + 1, lines.end());
  EXPECT_EQ((Lines{"", "OPERA HISTORY:", "http://g.ro/a b", "C:/d", "", "FIREFOX HISTORY:",
                   "http://f.ro"}),
            rest);
  // download.dat was made by the open.
  EXPECT_TRUE(path_exists(opera_folder + "\\Profile\\download.dat"));
}

TEST_F(ViewerPage, CategoriesWithoutAViewLeaveThePanelClosed) {
  view("CHECK10");
  view("CHECK17");
  EXPECT_FALSE(page.Frame15.Visible());
  EXPECT_EQ(0, form.viewer_mode);
}

TEST_F(ViewerPage, OnlyLinesLongerThan67CharactersGetATip) {
  view("CHECK2");
  page.junk_files.Clear();
  const std::string long_line(68, 'L');
  page.junk_files.AddItem(std::string(67, 's'));
  page.junk_files.AddItem(long_line);
  page.Label30.ForeColor(RGB(255, 0, 0));
  const int height = page.junk_files.TextHeight("Xyz");
  page.junk_files_MouseMove(0, 0, 5, height + 1);
  EXPECT_EQ(long_line, page.junk_files.ToolTipText());
  EXPECT_EQ(0u, page.Label30.ForeColor());
  page.junk_files_MouseMove(0, 0, 5, 1);
  EXPECT_EQ("", page.junk_files.ToolTipText());
  page.junk_files_MouseMove(0, 0, 5, 5 * height);  // below the last line
  EXPECT_EQ("", page.junk_files.ToolTipText());
}

}  // namespace
