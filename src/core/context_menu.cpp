#include "core/context_menu.h"

#include <windows.h>

#include "platform/files.h"
#include "platform/registry.h"

namespace wh {

namespace {
const char* const file_verb = "*\\shell\\Wellharrow";
const char* const folder_verb = "Folder\\shell\\Wellshred";
}  // namespace

std::string context_menu_command(const std::string& folder, const std::string& exe_name) {
  std::string command = folder;
  if (command.empty() || command.back() != '\\') command += '\\';
  return command + exe_name + ".exe %1";
}

bool register_context_menu() {
  const std::string command = context_menu_command(app_path(), app_exe_name());
  const std::string file_command = std::string(file_verb) + "\\command";
  const std::string folder_command = std::string(folder_verb) + "\\command";
  bool result = false;
  // The keys stay open, as they always have.
  HKEY key = nullptr;
  if (reg_create_key(HKEY_CLASSES_ROOT, file_verb, key) != 0) return result;
  if (reg_set_default(key, "", "Wellharrow", MAX_PATH) != 0) return result;
  if (reg_create_key(HKEY_CLASSES_ROOT, file_command, key) != 0) return result;
  if (reg_set_default(key, "", command, MAX_PATH) != 0) return result;
  result = true;
  if (reg_create_key(HKEY_CLASSES_ROOT, folder_verb, key) != 0) return result;
  if (reg_set_default(key, "", "Wellshred", MAX_PATH) != 0) return result;
  if (reg_create_key(HKEY_CLASSES_ROOT, folder_command, key) != 0) return result;
  reg_set_default(key, "", command, MAX_PATH);
  return result;
}

bool unregister_context_menu() {
  for (const std::string& key :
       {std::string(file_verb) + "\\command", std::string(file_verb),
        std::string(folder_verb) + "\\command", std::string(folder_verb)})
    if (reg_delete_key(HKEY_CLASSES_ROOT, key) != 0) return false;
  return true;
}

}  // namespace wh
