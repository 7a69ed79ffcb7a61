#include "views/accessible_name.h"

#include "views/binding.h"

#ifdef __WXMSW__

#include <wx/access.h>

#else

#include <wx/combobox.h>
#include <wx/textctrl.h>

// Of the libraries that the toolkit stands on; it brings no headers of theirs.
struct AtkObject;
struct GtkBin;
extern "C" {
AtkObject* gtk_widget_get_accessible(GtkWidget* widget);
GtkWidget* gtk_bin_get_child(GtkBin* bin);
void atk_object_set_name(AtkObject* object, const char* name);
const char* atk_object_get_name(AtkObject* object);
}

#endif

namespace views {

#ifdef __WXMSW__

namespace {

// Everything else about the widget is told as the system tells it.
class NamedAccessible : public wxAccessible {
 public:
  using wxAccessible::wxAccessible;

  wxString called;

  wxAccStatus GetName(int part, wxString* name) override {
    if (part != wxACC_SELF) {
      return wxACC_NOT_IMPLEMENTED;
    }
    *name = called;
    return wxACC_OK;
  }
};

}  // namespace

std::string AccessibleName(const wxWindow& widget) {
  const auto* accessible = dynamic_cast<const NamedAccessible*>(const_cast<wxWindow&>(widget).GetAccessible());
  return accessible == nullptr ? std::string() : FromWx(accessible->called);
}

void SetAccessibleName(wxWindow& widget, const std::string& name) {
  if (name.empty() || name == AccessibleName(widget)) {
    return;
  }
  auto* accessible = dynamic_cast<NamedAccessible*>(widget.GetAccessible());
  if (accessible == nullptr) {
    accessible = new NamedAccessible(&widget);
    widget.SetAccessible(accessible);
  }
  accessible->called = ToWx(name);
  wxAccessible::NotifyEvent(wxACC_EVENT_OBJECT_NAMECHANGE, &widget, wxOBJID_CLIENT, wxACC_SELF);
}

#else

namespace {

// Text of several lines scrolls in a frame, and what is typed into a combo stands in an entry.
GtkWidget* FocusOf(const wxWindow& widget) {
  const auto* text = dynamic_cast<const wxTextCtrl*>(&widget);
  const auto* combo = dynamic_cast<const wxComboBox*>(&widget);
  const bool inside = (text != nullptr && text->IsMultiLine()) || (combo != nullptr && !combo->HasFlag(wxCB_READONLY));
  GtkWidget* const whole = widget.GetHandle();
  return inside ? gtk_bin_get_child(reinterpret_cast<GtkBin*>(whole)) : whole;
}

}  // namespace

std::string AccessibleName(const wxWindow& widget) {
  const char* const name = atk_object_get_name(gtk_widget_get_accessible(FocusOf(widget)));
  return name == nullptr ? "" : name;
}

void SetAccessibleName(wxWindow& widget, const std::string& name) {
  if (!name.empty() && name != AccessibleName(widget)) {
    atk_object_set_name(gtk_widget_get_accessible(FocusOf(widget)), name.c_str());
  }
}

#endif

}  // namespace views
