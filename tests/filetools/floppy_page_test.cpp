// The floppy section's refresh drops the tool it wrote; a machine without
// drive A is no error.
#include <gtest/gtest.h>

#include "core/globals.h"
#include "filetools/floppy_page.h"
#include "platform/files.h"
#include "support/scratch.h"
#include "support/test_form.h"

using namespace wh;

TEST(FloppyPage, RefreshDeletesTheWrittenToolWithoutADriveA) {
  test::TestForm form;
  FloppyPage page(form);
  const std::string tool = app_path() + "\\killa.exe";
  test::write_file(tool, "MZ");
  page.ref_block();
  EXPECT_FALSE(test::path_exists(tool));
}
