#include "studio/filters/filter_dialog.h"

#include <string>

#include "studio/filters/filter_fields.h"
#include "studio/filters/filter_preview.h"

namespace orvane::studio {
namespace {

std::string plainTitle(const Filter& filter) {
    std::string title = filter.label;
    title.erase(title.find('_'), 1);
    return title;
}

/// The open dialog of one filter; its window owns it.
class FilterDialog {
 public:
    FilterDialog(StudioPicture& picture, GtkWindow* parent, const Filter& filter)
        : form_(parent, plainTitle(filter).c_str(), "_Apply"),
          preview_(std::make_shared<FilterPreview>(picture, filter, "Filtering")),
          previews_(GTK_CHECK_BUTTON(FormDialog::newCheck("_Preview", true))) {
        const PictureSize size{orvane_vistrel_get_image_width(picture.control()),
                               orvane_vistrel_get_image_height(picture.control())};
        for (const FilterParameter& parameter : filter.parameters) {
            fields_.push_back(newFilterField(form_, parameter, size, [this] { show(); }));
        }
        form_.add(GTK_WIDGET(previews_));
        const auto toggled = +[](FilterDialog* self) { self->show(); };
        g_signal_connect_swapped(previews_, "toggled", G_CALLBACK(toggled), this);
        g_object_set_data_full(G_OBJECT(form_.dialog()), "filter-dialog", this,
                               [](gpointer self) { delete static_cast<FilterDialog*>(self); });
    }

    void open() {
        form_.show(
            [this] {
                if (!gtk_check_button_get_active(previews_)) preview_->show(arguments());
                preview_->keep();
            },
            [this] { preview_->cancel(); });
        show();
    }

 private:
    [[nodiscard]] GVariant* arguments() const {
        GVariantBuilder builder;
        g_variant_builder_init(&builder, G_VARIANT_TYPE_TUPLE);
        for (const auto& field : fields_) field->addTo(&builder);
        return g_variant_builder_end(&builder);
    }

    void show() {
        if (gtk_check_button_get_active(previews_)) {
            preview_->show(arguments());
        } else {
            preview_->hide();
        }
    }

    FormDialog form_;
    std::shared_ptr<FilterPreview> preview_;
    std::vector<std::unique_ptr<FilterField>> fields_;
    GtkCheckButton* previews_;
};

}  // namespace

void applyFilter(StudioPicture& picture, GtkWindow* parent, const char* member) {
    const Filter* filter = filterOfMember(member);
    if (filter == nullptr || picture.isEmpty() || picture.isBusy()) return;
    if (filter->parameters.empty()) {
        picture.runSlow(member, nullptr, "Filtering");
    } else {
        (new FilterDialog(picture, parent, *filter))->open();
    }
}

}  // namespace orvane::studio
