#pragma once

#include <memory>
#include <string>
#include <utility>

#include "session/session.h"

namespace entry {

// An object of the host that the component only keeps and gives back.
using HostObject = std::shared_ptr<void>;

// The printer that screens print on, as the host knows it.
struct Printer {
  std::string name;
  std::string device_mode;  // bytes, only the host's own
  std::string device_names;

  friend bool operator==(const Printer&, const Printer&) = default;
};

// The four objects that a host hands over, one slot each for the whole component: what is assigned through one
// instance of either class is seen through every other. An empty pointer clears a slot.
class IGlobal {
 public:
  IGlobal();
  IGlobal(const IGlobal&) = delete;
  IGlobal& operator=(const IGlobal&) = delete;
  virtual ~IGlobal();

  const HostObject& DAC() const;
  void SetDAC(HostObject object);
  const HostObject& GIC() const;
  void SetGIC(HostObject object);
  const HostObject& GC() const;
  void SetGC(HostObject object);
  const std::shared_ptr<session::Session>& PV() const;
  void SetPV(std::shared_ptr<session::Session> session);

  // The host's main form, kept from the first instance that had one for as long as there are instances.
  const HostObject& MainForm() const;
  void RegisterMainForm(const HostObject& form);
};

// The printer that the host passes in and out for the screens' printing: one for each public class, whichever instance
// it was passed through.
template <typename Class>
class ClassPrinter {
 public:
  static void SetPrinter(Printer printer) { Kept() = std::move(printer); }
  static const Printer& GetPrinter() { return Kept(); }

 private:
  ClassPrinter() = default;
  friend Class;

  static Printer& Kept() {
    static Printer printer;
    return printer;
  }
};

}  // namespace entry
