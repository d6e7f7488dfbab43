#pragma once
// The small strip that asks what to do with a file handed over by Explorer:
// Harrow (0), split (1) or shred (2); also the "please wait" window of the
// shredding road and of closing all programs.
#include "ui/ui.h"

namespace wh {

class Choose : public Form {
public:
  Choose();
  // Under the mouse, topmost, the pointer resting on the first answer.
  void Form_Load();
  // Pushes the window back when its right or bottom edge is off the screen.
  void Form_Resize();

  ImageButton& Image1;  // answers: Harrow
  ImageButton& Image2;  //          split
  ImageButton& Image3;  //          shred
  ImageButton& Image4;  // the frame that marks the answer under the mouse
  PictureBox& Picture1;  // the wait panel
  Label& Label1;         // on Picture1: shredding
  Label& Label2;         // beside it: closing all programs

private:
  void Image4_Click();
};

// Loaded on first use, unloaded by a click on Image4.
Choose& choose();
bool choose_loaded();
void choose_unload();

}  // namespace wh
