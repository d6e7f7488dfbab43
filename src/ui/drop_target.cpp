// OLE drags over a form. Explorer drags by OLE: a window that only accepts
// WM_DROPFILES gets the drop but never hears of the drag before it, so the
// form registers one IDropTarget and hands the drag to the control under
// the pointer, as OLEDragOver while it moves and OLEDragDrop at the end.
#include <ole2.h>
#include <shellapi.h>

#include "ui/control.h"
#include "ui/events.h"
#include "ui/form.h"

namespace wh {

namespace {

std::vector<std::string> files_of(IDataObject* data) {
  std::vector<std::string> files;
  if (!data) return files;
  FORMATETC format{CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
  STGMEDIUM medium{};
  if (FAILED(data->GetData(&format, &medium))) return files;
  // The medium owns the handle: no DragFinish here.
  files = detail::drop_file_names(static_cast<HDROP>(medium.hGlobal));
  ::ReleaseStgMedium(&medium);
  return files;
}

bool accepts_files(HWND w) { return (::GetWindowLongA(w, GWL_EXSTYLE) & WS_EX_ACCEPTFILES) != 0; }

class FormDropTarget final : public IDropTarget {
public:
  explicit FormDropTarget(Form& form) : form_(form) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (iid == IID_IUnknown || iid == IID_IDropTarget) {
      *out = static_cast<IDropTarget*>(this);
      AddRef();
      return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++refs_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --refs_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD, POINTL pt, DWORD* effect) override {
    files_ = files_of(data);
    return over(pt, effect);
  }
  HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL pt, DWORD* effect) override {
    return over(pt, effect);
  }
  HRESULT STDMETHODCALLTYPE DragLeave() override {
    files_.clear();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL pt, DWORD* effect) override {
    files_.clear();
    *effect = DROPEFFECT_NONE;
    HWND w = window_at(pt);
    if (!w) return S_OK;
    *effect = DROPEFFECT_COPY;
    const std::vector<std::string> files = files_of(data);
    detail::WindowScope scope;  // a drop is an outermost event, as a click is
    if (w == form_.hwnd()) {
      fire(form_.OLEDragDrop, files);
    } else if (Control* c = Control::from_hwnd(w)) {
      fire(c->OLEDragDrop, files);
    }
    return S_OK;
  }

private:
  HRESULT over(POINTL pt, DWORD* effect) {
    *effect = DROPEFFECT_NONE;
    HWND w = window_at(pt);
    if (!w) return S_OK;
    *effect = DROPEFFECT_COPY;
    detail::WindowScope scope;
    if (w == form_.hwnd()) {
      fire(form_.OLEDragOver, files_);
    } else if (Control* c = Control::from_hwnd(w)) {
      fire(c->OLEDragOver, files_);
    }
    return S_OK;
  }

  // The control under the point (its innermost visible window that is one
  // of ours), or the form on its bare surface; null unless it takes drops.
  HWND window_at(POINTL pt) const {
    HWND w = form_.hwnd();
    for (;;) {
      POINT client{pt.x, pt.y};
      ::ScreenToClient(w, &client);
      HWND child = ::ChildWindowFromPointEx(w, client, CWP_SKIPINVISIBLE);
      if (!child || child == w) break;
      w = child;
    }
    // A combo's edit and list belong to the combo.
    while (w && w != form_.hwnd() && !Control::from_hwnd(w)) w = ::GetParent(w);
    return w && accepts_files(w) ? w : nullptr;
  }

  Form& form_;
  ULONG refs_ = 1;
  std::vector<std::string> files_;
};

}  // namespace

void Form::accept_ole_drags() {
  if (drop_target_ || !hwnd_) return;
  // OLE on this thread; S_FALSE when it is on already.
  if (FAILED(::OleInitialize(nullptr))) return;
  auto* target = new FormDropTarget(*this);
  if (SUCCEEDED(::RegisterDragDrop(hwnd_, target)))
    drop_target_ = target;
  else
    target->Release();
}

void Form::revoke_ole_drags() {
  if (!drop_target_) return;
  if (hwnd_) ::RevokeDragDrop(hwnd_);
  drop_target_->Release();
  drop_target_ = nullptr;
}

}  // namespace wh
