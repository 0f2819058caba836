#pragma once

#include <span>

#include <orvane-gtk.h>

namespace orvane::studio {

/// What a field is called: beside it in the bar, by a screen reader, and in its tooltip.
struct FieldText {
    const char* label;  ///< short; "" for a field that speaks for itself
    const char* name;   ///< complete
    const char* tip;
};

// Fields of an options bar, each with its label. A field and its property of the control follow each other.

/// `unit` stands behind the number: " px".
[[nodiscard]] GtkWidget* newNumberField(OrvaneVistrel* control, const FieldText& text, const char* property,
                                        int lowest, int highest, const char* unit);
/// An alpha byte, shown in percent.
[[nodiscard]] GtkWidget* newOpacityField(OrvaneVistrel* control, const FieldText& text, const char* property);
[[nodiscard]] GtkWidget* newColorField(OrvaneVistrel* control, const FieldText& text, const char* property);
/// One of several: the property's value is the choice's place, from 0. Long lists can be searched.
[[nodiscard]] GtkWidget* newChoiceField(OrvaneVistrel* control, const FieldText& text, const char* property,
                                        std::span<const char* const> choices);
/// The same for a list of GtkStringObject, which it takes over.
[[nodiscard]] GtkWidget* newListField(OrvaneVistrel* control, const FieldText& text, const char* property,
                                      GListModel* choices);
[[nodiscard]] GtkWidget* newCheckField(OrvaneVistrel* control, const FieldText& text, const char* property);
/// A toggle button that shows a picture.
[[nodiscard]] GtkWidget* newToggleField(OrvaneVistrel* control, const FieldText& text, const char* property,
                                        const char* iconName);

/// A number that is being typed counts from now on, and not when its field is left.
void takeTypedNumber(GtkWindow* window);

/// Name and tooltip for a field of another kind.
void nameField(GtkWidget* field, const FieldText& text);
/// The field behind its label.
[[nodiscard]] GtkWidget* withLabel(GtkWidget* field, const FieldText& text);

}  // namespace orvane::studio
