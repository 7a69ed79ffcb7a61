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
int gtk_window_has_toplevel_focus(GtkWindow* window);
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
  GtkWidget* const wanted = widget.GetHandle();
  // What scrolls has the text inside; a frame hands the focus on to what it is around.
  return target != nullptr && (target == wanted || gtk_widget_is_ancestor(target, wanted) != 0 ||
                               gtk_widget_is_ancestor(wanted, target) != 0);
}

bool HasKeyboard(const wxTopLevelWindow& window) {
  return gtk_window_has_toplevel_focus(reinterpret_cast<GtkWindow*>(window.GetHandle())) != 0;
}

bool PressMnemonic(const wxTopLevelWindow& window, char letter) {
  constexpr int kAlt = 1 << 3;
  return gtk_window_mnemonic_activate(reinterpret_cast<GtkWindow*>(window.GetHandle()), static_cast<unsigned>(letter),
                                      kAlt) != 0;
}
