#include "platform/rt_error.h"

namespace wh {

const char* rt_text(int number) {
  switch (number) {
    case rt_ok: return "";
    case rt_invalid_call: return "Invalid procedure call or argument";
    case rt_overflow: return "Overflow";
    case rt_out_of_memory: return "Out of memory";
    case rt_subscript: return "Subscript out of range";
    case rt_type_mismatch: return "Type mismatch";
    case rt_bad_file_name_or_number: return "Bad file name or number";
    case rt_file_not_found: return "File not found";
    case rt_bad_file_mode: return "Bad file mode";
    case rt_file_already_open: return "File already open";
    case rt_device_io: return "Device I/O error";
    case rt_file_exists: return "File already exists";
    case rt_disk_full: return "Disk full";
    case rt_input_past_end: return "Input past end of file";
    case rt_bad_record_number: return "Bad record number";
    case rt_too_many_files: return "Too many files";
    case rt_device_unavailable: return "Device unavailable";
    case rt_permission_denied: return "Permission denied";
    case rt_disk_not_ready: return "Disk not ready";
    case rt_path_file_access: return "Path/File access error";
    case rt_path_not_found: return "Path not found";
    case rt_object_not_set: return "Object variable or With block variable not set";
    case rt_invalid_property: return "Invalid property value";
    case rt_set_not_at_runtime: return "Property cannot be set at run time";
    case rt_cannot_create_object: return "ActiveX component can't create object";
    case rt_no_such_member: return "Object doesn't support this property or method";
    case rt_automation: return "Automation error";
    default: return "Application-defined or object-defined error";
  }
}

}  // namespace wh
