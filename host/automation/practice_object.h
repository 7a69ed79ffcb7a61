#pragma once

#include <memory>

#include "automation/named_object.h"
#include "practice/practice.h"

namespace host {

// "PracticeDesk.Practice", the practice host for scripts:
//
//   OpenDemo path, patients    the demo practice in a SQLite file, which is made when there is none; patients of a new
//                              one, 2000 when left out
//   Open url                   the practice at a database URL
//   LogIn(name, password, office)  the session object (PV) of a login, in the practice's first office when left out
//
// A failure is an automation error whose text says what is wrong. A session object keeps its practice open.
class PracticeObject final : public automation::NamedObject {
 public:
  PracticeObject();

 private:
  void OpenDemo(const automation::CallArguments& arguments);
  automation::Variant LogIn(const automation::CallArguments& arguments) const;

  std::shared_ptr<Practice> practice_;
  std::string data_folder_;
};

}  // namespace host
