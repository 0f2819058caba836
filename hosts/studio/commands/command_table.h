#pragma once

#include <span>

namespace orvane::studio {

class StudioWindow;

enum class Menu { File, Edit, View, Image, Help };

/// What must be there for a command to make sense. What is idle is not being changed or saved by a slow
/// method, for which a command that puts a property would have to wait.
enum class Needs { Nothing, Idle, Picture, IdlePicture, Undo, Redo, Selection, ClipboardPicture };

/// One command: its action, its place in the menus, its keys. Menus, accelerators and the shortcuts window
/// are made from these rows.
struct Command {
    const char* name;   ///< of the action, without "win."
    const char* label;  ///< with the mnemonic's underscore
    Menu menu;
    int section;  ///< of the menu; sections are divided by lines
    Needs needs;
    const char* keys;  ///< accelerators, divided by spaces; "" for none
    void (*run)(StudioWindow&);
    bool (*isOn)(const StudioWindow&);  ///< of a command that is switched on and off; else null
};

[[nodiscard]] std::span<const Command> commands();
[[nodiscard]] const char* menuLabel(Menu menu);

/// The accelerators as a null-terminated array, to be freed with g_strfreev.
[[nodiscard]] char** keysOf(const Command& command);
/// The label without its underscore and dots.
[[nodiscard]] char* plainLabel(const Command& command);

}  // namespace orvane::studio
