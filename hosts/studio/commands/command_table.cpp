#include "studio/commands/command_table.h"

#include <glib.h>

#include "studio/commands/edit_commands.h"
#include "studio/commands/file_commands.h"
#include "studio/commands/help_commands.h"
#include "studio/commands/image_commands.h"
#include "studio/commands/view_commands.h"

namespace orvane::studio {
namespace {

constexpr Command kCommands[] = {
    {"new", "_New…", Menu::File, 0, Needs::Nothing, "<Control>n", newPicture, nullptr},
    {"open", "_Open…", Menu::File, 0, Needs::Nothing, "<Control>o", openPictures, nullptr},
    {"save", "_Save", Menu::File, 1, Needs::IdlePicture, "<Control>s", savePicture, nullptr},
    {"save-as", "Save _As…", Menu::File, 1, Needs::IdlePicture, "<Control><Shift>s", savePictureAs, nullptr},
    {"close", "_Close", Menu::File, 2, Needs::Nothing, "<Control>w", closeWindow, nullptr},
    {"quit", "_Quit", Menu::File, 2, Needs::Nothing, "<Control>q", quit, nullptr},

    {"undo", "_Undo", Menu::Edit, 0, Needs::Undo, "<Control>z", undo, nullptr},
    {"redo", "_Redo", Menu::Edit, 0, Needs::Redo, "<Control><Shift>z <Control>y", redo, nullptr},
    {"cut", "Cu_t", Menu::Edit, 1, Needs::Selection, "<Control>x", cut, nullptr},
    {"copy", "_Copy", Menu::Edit, 1, Needs::Selection, "<Control>c", copy, nullptr},
    {"paste", "_Paste", Menu::Edit, 1, Needs::ClipboardPicture, "<Control>v", paste, nullptr},
    {"select-all", "Select _All", Menu::Edit, 1, Needs::IdlePicture, "<Control>a", selectAll, nullptr},
    {"accept", "Dra_w What Is Placed", Menu::Edit, 2, Needs::IdlePicture, "Return KP_Enter", accept, nullptr},
    {"drop", "_Drop What Is Placed", Menu::Edit, 2, Needs::IdlePicture, "Escape", drop, nullptr},

    {"zoom-in", "Zoom _In", Menu::View, 0, Needs::Picture, "<Control>plus <Control>equal <Control>KP_Add",
     zoomIn, nullptr},
    {"zoom-out", "Zoom _Out", Menu::View, 0, Needs::Picture, "<Control>minus <Control>KP_Subtract", zoomOut,
     nullptr},
    {"actual-size", "_Actual Size", Menu::View, 0, Needs::Picture, "<Control>1", actualSize, nullptr},
    {"fit", "_Fit Window", Menu::View, 0, Needs::Picture, "<Control>0", fitWindow, nullptr},
    {"overview", "O_verview Panel", Menu::View, 1, Needs::Idle, "F7", toggleOverview, isOverviewOn},
    {"histogram", "_Histogram", Menu::View, 1, Needs::Nothing, "F8", toggleHistogram, isHistogramOn},
    {"options", "_Tool Options", Menu::View, 1, Needs::Nothing, "F9", toggleOptions, isOptionsOn},
    {"fullscreen", "F_ull Screen", Menu::View, 2, Needs::Nothing, "F11", toggleFullscreen, isFullscreen},

    {"rotate-left", "Rotate _Left", Menu::Image, 0, Needs::IdlePicture, "<Control>Left", rotateLeft, nullptr},
    {"rotate-right", "Rotate _Right", Menu::Image, 0, Needs::IdlePicture, "<Control>Right", rotateRight,
     nullptr},
    {"rotate-half", "Rotate by _Half", Menu::Image, 0, Needs::IdlePicture, "<Control>Down", rotateHalf,
     nullptr},
    {"flip-horizontally", "_Mirror", Menu::Image, 0, Needs::IdlePicture, "<Control>m", mirror, nullptr},
    {"flip-vertically", "Turn _Upside Down", Menu::Image, 0, Needs::IdlePicture, "<Control><Shift>m", flip,
     nullptr},
    {"scale", "_Scale…", Menu::Image, 1, Needs::IdlePicture, "<Control><Alt>s", scalePicture, nullptr},
    {"place-picture", "_Place Picture…", Menu::Image, 2, Needs::IdlePicture, "<Control><Shift>o",
     placePicture, nullptr},

    {"shortcuts", "_Keyboard Shortcuts", Menu::Help, 0, Needs::Nothing, "<Control>question F1", showShortcuts,
     nullptr},
    {"about", "_About Orvane Studio", Menu::Help, 0, Needs::Nothing, "", showAbout, nullptr},
};

}  // namespace

std::span<const Command> commands() { return kCommands; }

const char* menuLabel(Menu menu) {
    switch (menu) {
        case Menu::File:
            return "_File";
        case Menu::Edit:
            return "_Edit";
        case Menu::View:
            return "_View";
        case Menu::Image:
            return "_Image";
        case Menu::Help:
            return "_Help";
    }
    return "";
}

char** keysOf(const Command& command) {
    return *command.keys == '\0' ? g_new0(char*, 1) : g_strsplit(command.keys, " ", -1);
}

char* plainLabel(const Command& command) {
    GString* label = g_string_new(command.label);
    g_string_replace(label, "_", "", 0);
    g_string_replace(label, "…", "", 0);
    return g_string_free(label, FALSE);
}

}  // namespace orvane::studio
