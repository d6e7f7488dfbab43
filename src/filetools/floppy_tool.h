#pragma once
// The floppy tool killa.exe: resource EXE 101 of the program, written to the
// program's folder, started minimised, watched for the end of its work and
// ended. Shared by the floppy section and the spanning of a split.
#include <string>

namespace wh {

// Set by the watch when it found the tool done; cleared before a format.
extern bool format_done;

// The program's folder, then "\killa.exe".
std::string killa_path();
// Writes the tool out and starts it with window style 6.
void run_killa();
// One look at the windows: a title holding both "Inactive" and "KILLA" is
// the tool done; its process is ended and format_done set. True on a hit.
bool killa_watch();

}  // namespace wh
