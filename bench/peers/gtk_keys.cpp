// gtk_keys field|choice - a GTK window with a field that takes decimal numbers alone and a group of
// radio buttons, for comparison.  The keyboard is in the one that is named.
#include <gtk/gtk.h>

#include <cstring>
#include <initializer_list>

static void keepNumber(GtkEditable* field, const char* text, int length, int*, gpointer)
{
    const char* const before = gtk_entry_get_text(GTK_ENTRY(field));
    for (int i = 0; i < length; ++i) {
        if (!g_ascii_isdigit(text[i]) && (text[i] != '.' || std::strchr(before, '.') != nullptr))
            g_signal_stop_emission_by_name(field, "insert-text");
    }
}

int main(int argc, char** argv)
{
    gtk_init(&argc, &argv);
    GtkWidget* const window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* const box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 6);
    GtkWidget* const field = gtk_entry_new();
    GtkWidget* const first = gtk_radio_button_new_with_label(nullptr, "Speed First");
    GtkWidget* const second =
        gtk_radio_button_new_with_label_from_widget(GTK_RADIO_BUTTON(first), "Quality First");
    g_signal_connect(field, "insert-text", G_CALLBACK(keepNumber), nullptr);
    g_object_set(gtk_settings_get_default(), "gtk-cursor-blink", FALSE, nullptr);
    for (GtkWidget* const widget : {field, first, second})
        gtk_container_add(GTK_CONTAINER(box), widget);
    gtk_container_add(GTK_CONTAINER(window), box);
    gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(second), TRUE);
    gtk_widget_show_all(window);
    gtk_widget_grab_focus(argc > 1 && std::strcmp(argv[1], "choice") == 0 ? second : field);
    gtk_main();
    return 0;
}
