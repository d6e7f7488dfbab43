#include "monitor/ram_release.h"

#include <cmath>
#include <new>
#include <string>
#include <vector>

#include "core/globals.h"
#include "core/later.h"
#include "core/text.h"
#include "platform/memory.h"
#include "platform/rt_error.h"

namespace wh {

namespace {
double physical_seam = 0;
constexpr std::size_t block_chars = 500000;  // two-byte characters: 1,000,000 bytes
}  // namespace

void set_physical_memory_seam(double bytes) { physical_seam = bytes; }

double physical_memory() {
  return physical_seam > 0 ? physical_seam : memory_status().total_phys;
}

RamRelease::RamRelease(MainForm& form)
    : frogup(form.add<PictureBox>("frogup", extra_place(0))), form_(form) {
  frogup.LoadPicture("FROG_SUS");
  frogup.Visible(false);
}

void RamRelease::frogsus_Click() {
  ++runs_;
  form_.lcd.Clear();
  frogup.Visible(true);
  form_.lcd.WriteText(language_flag == 1 ? "Freeing up RAM" : "Se elibereaza RAM");
  form_.mark.Visible(true);
  form_.Picture16.Visible(true);
  const double total = physical_memory();
  do_events();
  form_.freeing = true;
  blocks_ = written_ = 0;
  progress_ = 0;
  {
    std::vector<std::u16string> held;
    try {
      blocks_ = static_cast<int32_t>(round_even(total * 0.9 / 1048576));
      held.resize(static_cast<std::size_t>(blocks_) + 1);
      // One pass beyond the array: its out-of-range error is the way out.
      for (int32_t i = 0; i <= blocks_ + 1; ++i) {
        held.at(static_cast<std::size_t>(i)) = std::u16string(block_chars, u' ');
        ++written_;
        do_events();
        if (blocks_ == 0) raise(11);  // division by zero
        progress_ = static_cast<int16_t>((static_cast<int64_t>(i) + 1) * 100 / blocks_);
        form_.spProg3(progress_);
        do_events();
      }
    } catch (const std::out_of_range&) {
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    } catch (const RuntimeError&) {
    }
  }  // all of it goes back at once
  form_.Picture16.Visible(false);
  frogup.Visible(false);
  form_.mark.Visible(false);
  form_.freeing = false;
}

void RamRelease::meniu_freeram_Click() {
  // The busy icon with its own tip comes with the tray; until then the
  // normal icon goes for the run and comes back.
  tray_remove();
  frogsus_Click();
  tray_add();
}

}  // namespace wh
