// The pack as a whole: one member's registration registers the others of
// its folder, and only those; its unregistration takes back what points at
// its folder and nothing registered elsewhere; with nothing to clean every
// RUN is quiet and every description fits the panel in both languages.
#include <windows.h>

#include <gtest/gtest.h>

#include "pack_support.h"

using namespace pack_test;

namespace {

// A folder whose name no single-byte code page holds: the plug-ins register
// and run from it whatever the code page of the process.
const std::wstring folder =
    L"C:\\wh\\scratch\\Cur\u0103\u021benie \u65e5\u672c\\JunkHarrower Plugins";

std::wstring prog_id(const std::wstring& name) { return name + L".Plugin"; }

TEST(PackRegistration, OneMemberRegistersThePackOfItsFolderAndUnregistersOnlyThat) {
  Made made;
  made.folder(folder);
  for (const std::wstring& name : pack_names()) {
    ASSERT_EQ(L"", registered_server(prog_id(name))) << utf8(name);
    ASSERT_TRUE(CopyFileW(pack_file(name).c_str(), (folder + L"\\" + name + L".dll").c_str(), FALSE));
  }
  // Not members: a renamed member and a file of another kind.
  ASSERT_TRUE(CopyFileW(pack_file(L"Chromium").c_str(), (folder + L"\\Foo.dll").c_str(), FALSE));
  made.file(folder + L"\\notes.txt", "notes");

  ASSERT_EQ(S_OK, self_register(folder + L"\\ShaderCache.dll", true));
  for (const std::wstring& name : pack_names()) {
    EXPECT_EQ(folder + L"\\" + name + L".dll", registered_server(prog_id(name))) << utf8(name);
    EXPECT_NE(std::vector<std::string>{"<none>"}, describe(name)) << utf8(name);
  }
  EXPECT_EQ(L"", registered_server(L"Foo.Plugin"));
  EXPECT_EQ(L"", registered_server(L"notes.Plugin"));

  // The same pack registered from another folder since: unregistering this
  // folder's leaves that registration alone.
  ASSERT_EQ(S_OK, self_register(pack_file(L"CrashDumps"), true));
  EXPECT_EQ(S_OK, self_register(folder + L"\\Firefox.dll", false));
  for (const std::wstring& name : pack_names())
    EXPECT_EQ(pack_file(name), registered_server(prog_id(name))) << utf8(name);

  EXPECT_EQ(S_OK, self_register(pack_file(L"Chromium"), false));
  for (const std::wstring& name : pack_names())
    EXPECT_EQ(L"", registered_server(prog_id(name))) << utf8(name);
  HKEY key;
  EXPECT_NE(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CLASSES_ROOT, L"Chromium.Plugin", 0, KEY_READ, &key));

  CoFreeUnusedLibrariesEx(0, 0);  // the copies, loaded for the descriptions
}

// On a PC without any of the browsers and caches: every RUN is a quiet
// no-op, and every description still fits.
TEST(PackRegistration, OnNothingToCleanEveryRunIsQuietAndEveryDescriptionFitsThePanel) {
  Pack pack;
  for (const std::wstring& name : pack_names()) EXPECT_TRUE(run(name)) << utf8(name);
  for (const char* language : {"engleza", "romana"}) {
    Language chosen(language);
    for (const std::wstring& name : pack_names()) {
      const std::vector<std::string> lines = describe(name);
      EXPECT_NE(std::vector<std::string>{"<none>"}, lines) << utf8(name);
      EXPECT_LE(lines.size(), 5u) << utf8(name);
      for (const std::string& line : lines) {
        EXPECT_LE(line.size(), 19u) << utf8(name) << ": " << line;
        EXPECT_FALSE(line.empty()) << utf8(name);
        for (unsigned char c : line) EXPECT_TRUE(c >= 32 && c <= 126) << utf8(name) << ": " << line;
      }
    }
  }
}

}  // namespace
