#include "platform/url_history.h"

namespace wh {

namespace {
// CLSID_CUrlHistory, spelled out: not every import library carries it.
const CLSID url_history_class = {0x3c374a40, 0xbae4, 0x11cf,
                                 {0xbf, 0x7d, 0x00, 0xaa, 0x00, 0x69, 0x46, 0xee}};
}  // namespace

IUrlHistoryStg2* create_url_history_store() {
  CoInitialize(nullptr);  // S_FALSE when already started: fine either way
  IUrlHistoryStg2* store = nullptr;
  if (FAILED(CoCreateInstance(url_history_class, nullptr, CLSCTX_INPROC_SERVER,
                              IID_IUrlHistoryStg2, reinterpret_cast<void**>(&store))))
    return nullptr;
  return store;
}

}  // namespace wh
