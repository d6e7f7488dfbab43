#include "platform/automation.h"

#include <oleauto.h>

#include <vector>

#include "platform/rt_error.h"

namespace wh {

namespace {
std::wstring wide(const std::string& text) {
  int n = MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, nullptr, 0);
  std::vector<wchar_t> buf(n > 0 ? n : 1, L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, buf.data(), n);
  return buf.data();
}

std::string narrow(const wchar_t* text, UINT length) {
  int n = WideCharToMultiByte(CP_ACP, 0, text, static_cast<int>(length), nullptr, 0, nullptr,
                              nullptr);
  std::string out(n > 0 ? n : 0, '\0');
  WideCharToMultiByte(CP_ACP, 0, text, static_cast<int>(length), out.data(), n, nullptr, nullptr);
  return out;
}
}  // namespace

int AutomationObject::create(const std::string& prog_id) {
  release();
  ::CoInitialize(nullptr);  // S_FALSE when already started: fine either way
  CLSID clsid;
  if (FAILED(::CLSIDFromProgID(wide(prog_id).c_str(), &clsid))) return rt_cannot_create_object;
  void* object = nullptr;
  if (FAILED(::CoCreateInstance(clsid, nullptr, CLSCTX_SERVER, IID_IDispatch, &object)) || !object)
    return rt_cannot_create_object;
  dispatch_ = static_cast<IDispatch*>(object);
  return rt_ok;
}

void AutomationObject::release() {
  if (dispatch_) dispatch_->Release();
  dispatch_ = nullptr;
}

int AutomationObject::invoke(const std::string& member, WORD flags, VARIANT& result) {
  if (!dispatch_) return rt_object_not_set;
  std::wstring name = wide(member);
  LPOLESTR names[1] = {name.data()};
  DISPID id = 0;
  if (FAILED(dispatch_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id)))
    return rt_no_such_member;
  DISPPARAMS none{};
  EXCEPINFO error{};
  HRESULT hr = dispatch_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &none, &result, &error,
                                 nullptr);
  if (error.bstrSource) ::SysFreeString(error.bstrSource);
  if (error.bstrDescription) ::SysFreeString(error.bstrDescription);
  if (error.bstrHelpFile) ::SysFreeString(error.bstrHelpFile);
  if (hr == DISP_E_MEMBERNOTFOUND) return rt_no_such_member;
  return FAILED(hr) ? rt_automation : rt_ok;
}

int AutomationObject::get_text(const std::string& member, std::string& value) {
  VARIANT result;
  ::VariantInit(&result);
  int r = invoke(member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, result);
  if (r == rt_ok) {
    if (FAILED(::VariantChangeType(&result, &result, 0, VT_BSTR)))
      r = rt_type_mismatch;
    else
      value = result.bstrVal ? narrow(result.bstrVal, ::SysStringLen(result.bstrVal)) : "";
  }
  ::VariantClear(&result);
  return r;
}

int AutomationObject::call(const std::string& member) {
  VARIANT result;
  ::VariantInit(&result);
  int r = invoke(member, DISPATCH_METHOD, result);
  ::VariantClear(&result);
  return r;
}

}  // namespace wh
