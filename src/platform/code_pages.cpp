#include "platform/code_pages.h"

#include <cwchar>

#include "platform/handles.h"

namespace wh {

namespace {
UINT registry_code_page(const wchar_t* value, LCTYPE fallback) {
  HKEY raw = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SYSTEM\\CurrentControlSet\\Control\\Nls\\CodePage", 0,
                    KEY_QUERY_VALUE, &raw) == ERROR_SUCCESS) {
    KeyHandle key(raw);
    wchar_t text[16] = {};
    DWORD size = sizeof text - sizeof(wchar_t), type = 0;
    if (RegQueryValueExW(key.get(), value, nullptr, &type, reinterpret_cast<BYTE*>(text), &size) ==
            ERROR_SUCCESS &&
        type == REG_SZ) {
      const unsigned long cp = std::wcstoul(text, nullptr, 10);
      if (cp != 0 && IsValidCodePage(static_cast<UINT>(cp))) return static_cast<UINT>(cp);
    }
  }
  DWORD cp = 0;
  if (GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, fallback | LOCALE_RETURN_NUMBER,
                     reinterpret_cast<wchar_t*>(&cp), sizeof cp / sizeof(wchar_t)) > 0 &&
      cp != 0)
    return cp;
  return fallback == LOCALE_IDEFAULTANSICODEPAGE ? 1252 : 437;
}

std::wstring widen(std::string_view text, DWORD flags, bool& ok) {
  ok = true;
  if (text.empty()) return {};
  const int n = MultiByteToWideChar(CP_ACP, flags, text.data(), static_cast<int>(text.size()),
                                    nullptr, 0);
  if (n <= 0) {
    ok = false;
    return {};
  }
  std::wstring w(static_cast<size_t>(n), L'\0');
  MultiByteToWideChar(CP_ACP, flags, text.data(), static_cast<int>(text.size()), w.data(), n);
  return w;
}
}  // namespace

UINT system_ansi_code_page() {
  static const UINT cp = registry_code_page(L"ACP", LOCALE_IDEFAULTANSICODEPAGE);
  return cp;
}

UINT system_oem_code_page() {
  static const UINT cp = registry_code_page(L"OEMCP", LOCALE_IDEFAULTCODEPAGE);
  return cp;
}

bool encode_text(std::string_view text, UINT cp, std::string& out) {
  bool ok = false;
  const std::wstring w = widen(text, MB_ERR_INVALID_CHARS, ok);
  if (!ok) return false;
  if (w.empty()) {
    out.clear();
    return true;
  }
  const int wn = static_cast<int>(w.size());
  // UTF-8 and UTF-7 take no default character: everything has a place.
  const bool unicode = cp == CP_UTF8 || cp == CP_UTF7;
  BOOL defaulted = FALSE;
  const DWORD flags = unicode ? 0 : WC_NO_BEST_FIT_CHARS;
  BOOL* used = unicode ? nullptr : &defaulted;
  const int n = WideCharToMultiByte(cp, flags, w.data(), wn, nullptr, 0, nullptr, used);
  if (n <= 0 || defaulted) return false;
  std::string bytes(static_cast<size_t>(n), '\0');
  WideCharToMultiByte(cp, flags, w.data(), wn, bytes.data(), n, nullptr, used);
  if (defaulted) return false;
  out = std::move(bytes);
  return true;
}

std::string text_for_code_page(std::string_view text, UINT cp) {
  std::string out;
  if (encode_text(text, cp, out)) return out;
  return std::string(text);
}

std::wstring wide_text(std::string_view text) {
  bool ok = false;
  return widen(text, 0, ok);
}

std::string narrow_text(std::wstring_view text) {
  if (text.empty()) return {};
  const int wn = static_cast<int>(text.size());
  const int n = WideCharToMultiByte(CP_ACP, 0, text.data(), wn, nullptr, 0, nullptr, nullptr);
  if (n <= 0) return {};
  std::string out(static_cast<size_t>(n), '\0');
  WideCharToMultiByte(CP_ACP, 0, text.data(), wn, out.data(), n, nullptr, nullptr);
  return out;
}

}  // namespace wh
