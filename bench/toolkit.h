#pragma once

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/init.h>

#include <memory>

namespace bench {

// The toolkit and its event loop.
class Toolkit {
 public:
  Toolkit(int& count, char** words) {
    wxApp::SetInstance(new wxApp);
    started_ = std::make_unique<wxInitializer>(count, words);
    wxTheApp->SetExitOnFrameDelete(false);
    active_ = std::make_unique<wxEventLoopActivator>(&loop_);
  }

 private:
  std::unique_ptr<wxInitializer> started_;
  wxEventLoop loop_;
  std::unique_ptr<wxEventLoopActivator> active_;
};

}  // namespace bench
