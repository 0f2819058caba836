#include "studio/commands/shortcuts_window.h"

#include <memory>
#include <string>

#include "studio/commands/command_table.h"
#include "studio/support/object_ref.h"
#include "studio/tools/tool_table.h"

namespace orvane::studio {
namespace {

/// The window's description for GtkBuilder: GTK 4.8 builds these windows in no other way.
class Description {
 public:
    void beginSection(const std::string& title) {
        // Higher than any column will be, so that a section is one page.
        text_ += "<child><object class=\"GtkShortcutsSection\"><property name=\"section-name\">" +
                 escaped(title) + "</property><property name=\"title\">" + escaped(title) +
                 "</property><property name=\"max-height\">20</property>";
    }
    void endSection() { text_ += "</object></child>"; }

    void beginGroup(const std::string& title) {
        text_ += "<child><object class=\"GtkShortcutsGroup\"><property name=\"title\">" + escaped(title) +
                 "</property>";
    }
    void add(const std::string& title, const std::string& keys) {
        text_ += "<child><object class=\"GtkShortcutsShortcut\"><property name=\"title\">" + escaped(title) +
                 "</property><property name=\"accelerator\">" + escaped(keys) +
                 "</property></object></child>";
    }
    void endGroup() { text_ += "</object></child>"; }
    [[nodiscard]] std::string text() const { return text_ + "</object></interface>"; }

 private:
    static std::string escaped(const std::string& text) {
        const std::unique_ptr<char, FreeText> markup(g_markup_escape_text(text.c_str(), gssize(text.size())));
        return markup.get();
    }
    std::string text_ =
        "<interface><object class=\"GtkShortcutsWindow\" id=\"window\"><property name=\"modal\">1</property>";
};

std::string withoutUnderscore(std::string label) {
    const std::size_t at = label.find('_');
    return at == std::string::npos ? label : label.erase(at, 1);
}

void addCommands(Description& description, Menu menu) {
    description.beginGroup(withoutUnderscore(menuLabel(menu)));
    for (const Command& command : commands()) {
        if (command.menu != menu || *command.keys == '\0') continue;
        const std::unique_ptr<char, FreeText> label(plainLabel(command));
        description.add(label.get(), command.keys);
    }
    description.endGroup();
}

const char* titleOf(ToolGroup group) {
    switch (group) {
        case ToolGroup::View:
            return "Look, Select, Crop";
        case ToolGroup::Line:
            return "Lines";
        case ToolGroup::Shape:
            return "Shapes";
        case ToolGroup::Freehand:
            return "Freehand";
        case ToolGroup::Place:
            return "Place, Mend, Measure";
    }
    return "";
}

// The table has the groups one behind the other.
void addTools(Description& description) {
    const Tool* previous = nullptr;
    for (const Tool& tool : tools()) {
        if (previous == nullptr || previous->group != tool.group) {
            if (previous != nullptr) description.endGroup();
            description.beginGroup(titleOf(tool.group));
        }
        description.add(tool.label, std::string(1, char(g_ascii_tolower(tool.key))));
        previous = &tool;
    }
    description.endGroup();
}

}  // namespace

void showShortcutsWindow(GtkWindow* parent) {
    Description description;
    description.beginSection("Commands");
    for (const Menu menu : {Menu::File, Menu::Edit, Menu::View, Menu::Image, Menu::Help}) {
        addCommands(description, menu);
    }
    description.endSection();
    description.beginSection("Tools");
    addTools(description);
    description.endSection();
    GtkBuilder* builder = gtk_builder_new_from_string(description.text().c_str(), -1);
    auto* window = GTK_WINDOW(gtk_builder_get_object(builder, "window"));
    gtk_window_set_title(window, "Keyboard Shortcuts");
    gtk_window_set_transient_for(window, parent);
    gtk_window_set_destroy_with_parent(window, TRUE);
    gtk_window_present(window);
    g_object_unref(builder);
}

}  // namespace orvane::studio
