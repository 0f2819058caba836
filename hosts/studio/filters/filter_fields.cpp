#include "studio/filters/filter_fields.h"

#include <algorithm>
#include <cmath>

#include "studio/filters/kernel_field.h"

namespace orvane::studio {
namespace {

using Changed = std::function<void()>;

/// Has `changed` called at a signal as long as the object lives.
void callAt(gpointer object, const char* signal, const Changed& changed) {
    const auto call = +[](Changed* what) { (*what)(); };
    const auto drop = +[](gpointer what, GClosure*) { delete static_cast<Changed*>(what); };
    g_signal_connect_data(object, signal, G_CALLBACK(call), new Changed(changed), drop, G_CONNECT_SWAPPED);
}

struct Range {
    double lowest, highest, initial;
};

Range rangeOf(const FilterParameter& parameter, PictureSize size) {
    const double shorter = std::min(size.width, size.height);
    switch (parameter.kind) {
        case ParameterKind::CentreX:
            return {0, std::max(size.width - 1.0, 1.0), std::floor(size.width / 2.0)};
        case ParameterKind::CentreY:
            return {0, std::max(size.height - 1.0, 1.0), std::floor(size.height / 2.0)};
        case ParameterKind::Length:
            return {parameter.lowest, std::max(std::hypot(size.width, size.height), parameter.lowest + 1),
                    std::max(std::round(shorter * parameter.initial), parameter.lowest)};
        default:
            return {parameter.lowest, parameter.highest, parameter.initial};
    }
}

/// A slider and a field to type in, for one number.
class NumberField final : public FilterField {
 public:
    NumberField(FormDialog& form, const FilterParameter& parameter, PictureSize size, const Changed& changed)
        : isReal_(parameter.kind == ParameterKind::Real) {
        const Range range = rangeOf(parameter, size);
        const double step = isReal_ ? 0.01 : 1, page = isReal_ ? 0.1 : 10;
        value_ = gtk_adjustment_new(range.initial, range.lowest, range.highest, step, page, 0);
        GtkWidget* slider = gtk_scale_new(GTK_ORIENTATION_HORIZONTAL, value_);
        gtk_scale_set_draw_value(GTK_SCALE(slider), FALSE);
        gtk_widget_set_size_request(slider, 220, -1);
        gtk_widget_set_hexpand(slider, TRUE);
        GtkWidget* number = gtk_spin_button_new(value_, 0, isReal_ ? 2 : 0);
        FormDialog::activateByReturn(number);
        form.add(parameter.label, number, slider);
        callAt(value_, "value-changed", changed);
    }
    void addTo(GVariantBuilder* arguments) const override {
        const double value = gtk_adjustment_get_value(value_);
        if (isReal_) {
            g_variant_builder_add(arguments, "d", value);
        } else {
            g_variant_builder_add(arguments, "i", int(std::lround(value)));
        }
    }

 private:
    GtkAdjustment* value_;
    bool isReal_;
};

class ChoiceField final : public FilterField {
 public:
    ChoiceField(FormDialog& form, const FilterParameter& parameter, const Changed& changed) {
        char** names = g_strsplit(parameter.choices, "|", -1);
        choice_ = GTK_DROP_DOWN(gtk_drop_down_new_from_strings(names));
        g_strfreev(names);
        form.add(parameter.label, GTK_WIDGET(choice_));
        callAt(choice_, "notify::selected", changed);
    }
    void addTo(GVariantBuilder* arguments) const override {
        g_variant_builder_add(arguments, "i", int(gtk_drop_down_get_selected(choice_)));
    }

 private:
    GtkDropDown* choice_;
};

class ColourField final : public FilterField {
 public:
    ColourField(FormDialog& form, const FilterParameter& parameter, const Changed& changed)
        : asChannels_(parameter.kind == ParameterKind::ColourChannels) {
        const auto rgb = unsigned(parameter.initial);
        const GdkRGBA initial{float(rgb >> 16 & 255U) / 255, float(rgb >> 8 & 255U) / 255,
                              float(rgb & 255U) / 255, 1};
        button_ = GTK_COLOR_CHOOSER(gtk_color_button_new_with_rgba(&initial));
        form.add(parameter.label, GTK_WIDGET(button_));
        callAt(button_, "notify::rgba", changed);
    }
    void addTo(GVariantBuilder* arguments) const override {
        GdkRGBA colour;
        gtk_color_chooser_get_rgba(button_, &colour);
        const int red = level(colour.red), green = level(colour.green), blue = level(colour.blue);
        if (asChannels_) {
            for (const int channel : {red, green, blue}) g_variant_builder_add(arguments, "i", channel);
        } else {
            g_variant_builder_add(arguments, "u", guint32(red) << 16 | guint32(green) << 8 | guint32(blue));
        }
    }

 private:
    static int level(float share) { return int(std::lround(std::clamp(share, 0.0F, 1.0F) * 255)); }
    GtkColorChooser* button_;
    bool asChannels_;
};

}  // namespace

std::unique_ptr<FilterField> newFilterField(FormDialog& form, const FilterParameter& parameter,
                                            PictureSize size, const Changed& changed) {
    switch (parameter.kind) {
        case ParameterKind::Choice:
            return std::make_unique<ChoiceField>(form, parameter, changed);
        case ParameterKind::Colour:
        case ParameterKind::ColourChannels:
            return std::make_unique<ColourField>(form, parameter, changed);
        case ParameterKind::Kernel:
            return newKernelField(form, parameter, changed);
        default:
            return std::make_unique<NumberField>(form, parameter, size, changed);
    }
}

}  // namespace orvane::studio
