#include "assistive.h"

#include <array>

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
GdkWindow* gtk_widget_get_window(GtkWidget* widget);
void* gdk_atom_intern(const char* name, int only_if_exists);
void gdk_property_change(GdkWindow* window, void* property, void* type, int format, int mode, const unsigned char* data,
                         int count);
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

void TellOfFrame(const wxTopLevelWindow& window, int edge, int title) {
  constexpr int kLongs = 32;
  constexpr int kReplace = 0;
  const std::array<long, 4> extents = {edge, edge, title, edge};
  gdk_property_change(gtk_widget_get_window(window.GetHandle()), gdk_atom_intern("_NET_FRAME_EXTENTS", 0),
                      gdk_atom_intern("CARDINAL", 0), kLongs, kReplace,
                      reinterpret_cast<const unsigned char*>(extents.data()), static_cast<int>(extents.size()));
}

bool PressMnemonic(const wxTopLevelWindow& window, char letter) {
  constexpr int kAlt = 1 << 3;
  return gtk_window_mnemonic_activate(reinterpret_cast<GtkWindow*>(window.GetHandle()), static_cast<unsigned>(letter),
                                      kAlt) != 0;
}
