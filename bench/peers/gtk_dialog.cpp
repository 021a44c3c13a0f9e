// A GTK print dialog, for comparison: opens it on the server's printers and waits.  Its title ends
// with dots until the dialog has the options of the printer that is named.
#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <cstring>

static const char* wanted = nullptr;

static gboolean lookForOptions(gpointer data)
{
    GtkPrinter* const printer =
        gtk_print_unix_dialog_get_selected_printer(GTK_PRINT_UNIX_DIALOG(data));
    if (printer == nullptr || !gtk_printer_has_details(printer) ||
        (wanted != nullptr && std::strcmp(gtk_printer_get_name(printer), wanted) != 0))
        return G_SOURCE_CONTINUE;
    gtk_window_set_title(GTK_WINDOW(data), "Print");
    return G_SOURCE_REMOVE;
}

int main(int argc, char** argv)
{
    gtk_init(&argc, &argv);
    GtkWidget* const dialog = gtk_print_unix_dialog_new("Print...", nullptr);
    GtkPrintSettings* const settings = gtk_print_settings_new();
    if (argc > 1) {
        wanted = argv[1];
        gtk_print_settings_set_printer(settings, wanted);
    }
    gtk_print_unix_dialog_set_settings(GTK_PRINT_UNIX_DIALOG(dialog), settings);
    g_signal_connect(dialog, "response", gtk_main_quit, nullptr);
    g_timeout_add(10, lookForOptions, dialog);
    gtk_widget_show_all(dialog);
    gtk_main();
    return 0;
}
