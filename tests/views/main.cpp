#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/image.h>
#include <wx/init.h>

#include "unix/displays.h"

// Windows stand on a screen that nobody sees.
int main(int count, char** words) {
  testing::InitGoogleTest(&count, words);
  const host::OwnDisplay display = host::HideFromEverybody();
  wxApp::SetInstance(new wxApp);
  const wxInitializer toolkit(count, words);
  if (!toolkit.IsOk()) {
    return 1;
  }
  wxTheApp->SetExitOnFrameDelete(false);
  wxInitAllImageHandlers();
  wxEventLoop loop;
  const wxEventLoopActivator active(&loop);
  return RUN_ALL_TESTS();
}
