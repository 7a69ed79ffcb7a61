#include "entry/global_slots.h"

namespace entry {
namespace {

struct Slots {
  HostObject dac;
  HostObject gic;
  HostObject gc;
  std::shared_ptr<session::Session> pv;
  HostObject main_form;
  int instances = 0;
};

// One for the component, for as long as it is loaded: the host's contract asks for it. Never taken down: at the end
// of a process the host's objects may be gone before.
Slots& TheSlots() {
  static Slots& slots = *new Slots;
  return slots;
}

}  // namespace

IGlobal::IGlobal() {
  ++TheSlots().instances;
}

IGlobal::~IGlobal() {
  if (--TheSlots().instances == 0) {
    TheSlots().main_form.reset();
  }
}

const HostObject& IGlobal::DAC() const {
  return TheSlots().dac;
}

void IGlobal::SetDAC(HostObject object) {
  TheSlots().dac = std::move(object);
}

const HostObject& IGlobal::GIC() const {
  return TheSlots().gic;
}

void IGlobal::SetGIC(HostObject object) {
  TheSlots().gic = std::move(object);
}

const HostObject& IGlobal::GC() const {
  return TheSlots().gc;
}

void IGlobal::SetGC(HostObject object) {
  TheSlots().gc = std::move(object);
}

const std::shared_ptr<session::Session>& IGlobal::PV() const {
  return TheSlots().pv;
}

void IGlobal::SetPV(std::shared_ptr<session::Session> session) {
  TheSlots().pv = std::move(session);
}

const HostObject& IGlobal::MainForm() const {
  return TheSlots().main_form;
}

void IGlobal::RegisterMainForm(const HostObject& form) {
  if (TheSlots().main_form == nullptr) {
    TheSlots().main_form = form;
  }
}

}  // namespace entry
