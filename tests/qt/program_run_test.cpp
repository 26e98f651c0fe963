#include "qt/ports/program_run.h"

#include <gtest/gtest.h>

namespace brelwin {
namespace {

TEST(TakeProgramFolder, TheComplaintNamesTheFolderAndWhatIsWrongWithIt) {
  for (const char* folder : {"/proc/nowhere/brelwin", "/dev/null"}) {
    qputenv("BRELWIN_FOLDER", folder);
    const auto taken = TakeProgramFolder();
    EXPECT_TRUE(taken.Complaint.starts_with("The folder " + std::string(folder) + " cannot be used: "))
        << taken.Complaint;
    EXPECT_FALSE(taken.Lock);
  }
  qunsetenv("BRELWIN_FOLDER");
}

}  // namespace
}  // namespace brelwin
