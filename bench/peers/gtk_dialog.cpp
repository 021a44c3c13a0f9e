// A GTK print dialog, for comparison: opens it on the server's printers and waits.
#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

int main(int argc, char** argv)
{
    gtk_init(&argc, &argv);
    GtkWidget* const dialog = gtk_print_unix_dialog_new("Print", nullptr);
    GtkPrintSettings* const settings = gtk_print_settings_new();
    if (argc > 1)
        gtk_print_settings_set_printer(settings, argv[1]);
    gtk_print_unix_dialog_set_settings(GTK_PRINT_UNIX_DIALOG(dialog), settings);
    g_signal_connect(dialog, "response", gtk_main_quit, nullptr);
    gtk_widget_show_all(dialog);
    gtk_main();
    return 0;
}
