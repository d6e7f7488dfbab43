#pragma once
// Late-bound automation objects: made by program identifier, their members
// reached by name through IDispatch, as a script reaches them. No type
// information is needed from the component.
#include <windows.h>
#include <oaidl.h>

#include <string>

namespace wh {

class AutomationObject {
public:
  AutomationObject() = default;
  ~AutomationObject() { release(); }
  AutomationObject(const AutomationObject&) = delete;
  AutomationObject& operator=(const AutomationObject&) = delete;

  // CLSIDFromProgID and CoCreateInstance; 429 when either fails.
  int create(const std::string& prog_id);
  bool valid() const { return dispatch_ != nullptr; }
  // A property read as text; 438 for an unknown member, 440 when the call
  // fails, 13 when the value is no text.
  int get_text(const std::string& member, std::string& value);
  // A method without arguments; the result is dropped.
  int call(const std::string& member);
  void release();

private:
  int invoke(const std::string& member, WORD flags, VARIANT& result);
  IDispatch* dispatch_ = nullptr;
};

}  // namespace wh
