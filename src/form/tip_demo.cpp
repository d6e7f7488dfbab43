// The quick tip's demonstration: a sample file glides onto the target.
#include "core/globals.h"
#include "form/mainu.h"

namespace wh {

namespace {
// Steps of the glide; one more tick shows the target lit, the next ends it.
constexpr uint8_t glide_steps = 4;
constexpr int start_left = 16;
}  // namespace

// What the tip says can be dropped: a shortcut on section 1, a file to
// shred on section 6, any file elsewhere.
void Mainu::Command1_Click() {
  static const char* const names[] = {"Song.mp3", "Secret.txt", "Firefox.lnk"};
  static const char* const pictures[] = {"TIP_SONG", "TIP_SECRET", "TIP_LINK"};
  const int kind = ActiveSection == 1 ? 2 : ActiveSection == 6 ? 1 : 0;
  sample.LoadPicture(pictures[kind]);
  Label47.Caption(names[kind]);
  sample.Move(start_left, sample.Top(), sample.Width(), sample.Height());
  Label47.Move(start_left - 12, Label47.Top(), Label47.Width(), Label47.Height());
  sample.Visible(true);
  Label47.Visible(true);
  trace.LoadPicture("TIP_TRACE_JOS");
  demo_frame_ = 0;
  Frame16.Visible(true);
  Frame16.ZOrder(0);  // over the tip's text, which was made first
  Timer5.Enabled(true);
}

void Mainu::Timer5_Timer() {
  ++demo_frame_;
  if (demo_frame_ <= glide_steps) {
    // Each tick a quarter of the way, ending over the target's middle.
    const int goal = trace.Left() + (trace.Width() - sample.Width()) / 2;
    const int left = start_left + (goal - start_left) * demo_frame_ / glide_steps;
    sample.Move(left, sample.Top(), sample.Width(), sample.Height());
    Label47.Move(left - 12, Label47.Top(), Label47.Width(), Label47.Height());
    if (demo_frame_ == glide_steps) {
      sample.Visible(false);
      Label47.Visible(false);
      trace.LoadPicture("TIP_TRACE_SUS");
    }
    return;
  }
  Timer5.Enabled(false);
  Frame16.Visible(false);
}

}  // namespace wh
