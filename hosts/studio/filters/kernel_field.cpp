#include "studio/filters/kernel_field.h"

#include <array>
#include <string>

namespace orvane::studio {
namespace {

constexpr int kSide = 5;
constexpr int kInitial[kSide][kSide] = {
    {0, 0, 0, 0, 0}, {0, 0, -1, 0, 0}, {0, -1, 5, -1, 0}, {0, 0, -1, 0, 0}, {0, 0, 0, 0, 0}};

/// All 25 weights; the outer ones show, and count, for 5 x 5 only.
class KernelField final : public FilterField {
 public:
    KernelField(FormDialog& form, const FilterParameter& parameter, std::function<void()> changed)
        : changed_(std::move(changed)) {
        const char* const sizes[] = {"3 × 3", "5 × 5", nullptr};
        size_ = gtk_drop_down_new_from_strings(sizes);
        form.add("_Size", size_);
        GtkWidget* grid = gtk_grid_new();
        gtk_grid_set_row_spacing(GTK_GRID(grid), 4);
        gtk_grid_set_column_spacing(GTK_GRID(grid), 4);
        for (int row = 0; row < kSide; ++row) {
            for (int column = 0; column < kSide; ++column) addWeight(GTK_GRID(grid), parameter, row, column);
        }
        form.add(parameter.label, grid);
        g_signal_connect_swapped(size_, "notify::selected", G_CALLBACK(&onSize), this);
        showWeights();
    }

    // The member wants them column by column.
    void addTo(GVariantBuilder* arguments) const override {
        g_variant_builder_open(arguments, G_VARIANT_TYPE("ai"));
        const int edge = rim();
        for (int column = edge; column < kSide - edge; ++column) {
            for (int row = edge; row < kSide - edge; ++row) {
                auto* weight = GTK_SPIN_BUTTON(weights_[row][column]);
                g_variant_builder_add(arguments, "i", gtk_spin_button_get_value_as_int(weight));
            }
        }
        g_variant_builder_close(arguments);
    }

 private:
    void addWeight(GtkGrid* grid, const FilterParameter& parameter, int row, int column) {
        GtkWidget* weight =
            FormDialog::newNumber(parameter.lowest, parameter.highest, 1, kInitial[row][column]);
        gtk_editable_set_width_chars(GTK_EDITABLE(weight), 3);
        gtk_spin_button_set_numeric(GTK_SPIN_BUTTON(weight), TRUE);
        const std::string name = "Row " + std::to_string(row + 1) + ", column " + std::to_string(column + 1);
        gtk_accessible_update_property(GTK_ACCESSIBLE(weight), GTK_ACCESSIBLE_PROPERTY_LABEL, name.c_str(),
                                       -1);
        const auto changed = +[](KernelField* self) { self->changed_(); };
        g_signal_connect_swapped(weight, "value-changed", G_CALLBACK(changed), this);
        gtk_grid_attach(grid, weight, column, row, 1, 1);
        weights_[row][column] = weight;
    }

    [[nodiscard]] int rim() const { return gtk_drop_down_get_selected(GTK_DROP_DOWN(size_)) == 0 ? 1 : 0; }

    void showWeights() {
        const int edge = rim();
        const auto shows = [edge](int at) { return at >= edge && at < kSide - edge; };
        for (int row = 0; row < kSide; ++row) {
            for (int column = 0; column < kSide; ++column) {
                gtk_widget_set_visible(weights_[row][column], shows(row) && shows(column));
            }
        }
    }

    static void onSize(KernelField* self) {
        self->showWeights();
        self->changed_();
    }

    std::function<void()> changed_;
    GtkWidget* size_;
    std::array<std::array<GtkWidget*, kSide>, kSide> weights_{};
};

}  // namespace

std::unique_ptr<FilterField> newKernelField(FormDialog& form, const FilterParameter& parameter,
                                            const std::function<void()>& changed) {
    return std::make_unique<KernelField>(form, parameter, changed);
}

}  // namespace orvane::studio
