#include "assistive.h"

// Of the libraries that the toolkit stands on; it brings no headers of theirs.
struct AtkObject;
struct GtkWindow;
extern "C" {
AtkObject* gtk_widget_get_accessible(GtkWidget* widget);
AtkObject* atk_object_get_parent(AtkObject* object);
const char* atk_object_get_name(AtkObject* object);
int atk_object_get_role(AtkObject* object);
const char* atk_role_get_name(int role);
GtkWidget* gtk_label_get_mnemonic_widget(GtkLabel* label);
int gtk_widget_is_ancestor(GtkWidget* widget, GtkWidget* ancestor);
int gtk_window_mnemonic_activate(GtkWindow* window, unsigned letter, int modifiers);
}

std::vector<std::string> AccessibleGroups(const wxWindow& widget) {
  std::vector<std::string> groups;
  for (AtkObject* at = atk_object_get_parent(gtk_widget_get_accessible(widget.GetHandle())); at != nullptr;
       at = atk_object_get_parent(at)) {
    const char* const name = atk_object_get_name(at);
    if (name != nullptr && *name != '\0' && std::string(atk_role_get_name(atk_object_get_role(at))) == "panel") {
      groups.emplace_back(name);
    }
  }
  return groups;
}

bool LeadsTo(const wxStaticText& caption, const wxWindow& widget) {
  GtkWidget* const target = gtk_label_get_mnemonic_widget(reinterpret_cast<GtkLabel*>(caption.GetHandle()));
  return target != nullptr && (target == widget.GetHandle() || gtk_widget_is_ancestor(target, widget.GetHandle()) != 0);
}

bool PressMnemonic(const wxTopLevelWindow& window, char letter) {
  constexpr int kAlt = 1 << 3;
  return gtk_window_mnemonic_activate(reinterpret_cast<GtkWindow*>(window.GetHandle()), static_cast<unsigned>(letter),
                                      kAlt) != 0;
}
