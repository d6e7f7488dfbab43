// OLE drags over a form, made by the real DoDragDrop with the cursor put
// over a control and a shell data object of a real file.
#include <windows.h>
#include <ole2.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/scratch.h"
#include "ui/ui.h"
#include "ui_test.h"

using namespace wh;
using Files = std::vector<std::string>;

namespace {

// Lets the drag run for a few of OLE's polls, then drops or gives up.
class Source final : public IDropSource {
public:
  explicit Source(HRESULT last) : last_(last) {}
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (iid == IID_IUnknown || iid == IID_IDropSource) {
      *out = static_cast<IDropSource*>(this);
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL, DWORD) override {
    return ++polls_ < 4 ? S_OK : last_;
  }
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }

private:
  HRESULT last_;
  int polls_ = 0;
};

// The shell's own data object for a file, as Explorer hands it over.
IDataObject* shell_data(const std::string& path) {
  std::wstring wide(path.size() + 1, L'\0');
  wide.resize(static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, path.c_str(), -1, wide.data(),
                                                      static_cast<int>(wide.size())) - 1));
  PIDLIST_ABSOLUTE item = nullptr;
  if (FAILED(SHParseDisplayName(wide.c_str(), nullptr, &item, 0, nullptr))) return nullptr;
  IShellFolder* parent = nullptr;
  PCUITEMID_CHILD child = nullptr;
  IDataObject* data = nullptr;
  if (SUCCEEDED(SHBindToParent(item, IID_IShellFolder, reinterpret_cast<void**>(&parent), &child))) {
    parent->GetUIObjectOf(nullptr, 1, &child, IID_IDataObject, nullptr,
                          reinterpret_cast<void**>(&data));
    parent->Release();
  }
  CoTaskMemFree(item);
  return data;
}

// Drags the file to the middle of `target`; the effect OLE settled on.
DWORD drag(const std::string& file, const Control& target, HRESULT last) {
  RECT r;
  GetWindowRect(target.hwnd(), &r);
  SetCursorPos((r.left + r.right) / 2, (r.top + r.bottom) / 2);
  IDataObject* data = shell_data(file);
  if (!data) return 0xFFFF;
  Source source(last);
  DWORD effect = DROPEFFECT_NONE;
  DoDragDrop(data, &source, DROPEFFECT_COPY, &effect);
  data->Release();
  return effect;
}

class DragDrop : public test::UiTest {
protected:
  void SetUp() override {
    ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
    form.Move(100, 100, 420, 320);
    form.Show();
    do_events();
  }
  test::ScratchDir dir{"dragdrop"};
  std::string file = dir.file("dragged file.txt", "x");
  Frame& box = form.add<Frame>("box", Place{10, 10, 300, 200});
  Label& inside = form.add<Label>("inside", Place{20, 30, 200, 40, &box}, "drop here");
  Label& deaf = form.add<Label>("deaf", Place{20, 100, 200, 40, &box}, "not here");
};

}  // namespace

TEST_F(DragDrop, TheControlUnderThePointerHearsTheDragAndGetsTheDropWithTheWholeName) {
  Files over, dropped;
  inside.OLEDropMode(true);
  inside.OLEDragOver = [&](const Files& f) { over = f; };
  inside.OLEDragDrop = [&](const Files& f) { dropped = f; };
  EXPECT_EQ(static_cast<DWORD>(DROPEFFECT_NONE), drag(file, inside, DRAGDROP_S_CANCEL));
  EXPECT_EQ(Files{file}, over);
  EXPECT_TRUE(dropped.empty());

  // "școală 学校 😀.txt", as Explorer hands it over: the shell's UTF-16.
  const std::string named = dir.file("\xC8\x99" "coal\xC4\x83 \xE5\xAD\xA6\xE6\xA0\xA1 \xF0\x9F\x98\x80.txt", "x");
  EXPECT_EQ(static_cast<DWORD>(DROPEFFECT_COPY), drag(named, inside, DRAGDROP_S_DROP));
  EXPECT_EQ(Files{named}, dropped);
}

TEST_F(DragDrop, AControlThatTakesNoDropsRefusesAndTheFormDoesNotStandIn) {
  Files heard;
  inside.OLEDropMode(true);
  form.OLEDropMode(true);
  form.OLEDragOver = [&](const Files& f) { heard = f; };
  form.OLEDragDrop = [&](const Files& f) { heard = f; };
  deaf.OLEDragDrop = [&](const Files& f) { heard = f; };
  EXPECT_EQ(static_cast<DWORD>(DROPEFFECT_NONE), drag(file, deaf, DRAGDROP_S_DROP));
  EXPECT_TRUE(heard.empty());
}
