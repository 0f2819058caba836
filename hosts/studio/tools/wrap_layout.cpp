#include "studio/tools/wrap_layout.h"

#include <algorithm>
#include <vector>

namespace {

struct WrapLayout {
    GtkLayoutManager parent;
    int columnSpacing, lineSpacing;
};
struct WrapLayoutClass {
    GtkLayoutManagerClass parent;
};

G_DEFINE_TYPE(WrapLayout, orvane_studio_wrap_layout, GTK_TYPE_LAYOUT_MANAGER)

struct Item {
    GtkWidget* child;
    int x, width, height;
};
struct Line {
    std::vector<Item> items;
    int height = 0, end = 0;
};

template <class Each>
void forEachShown(GtkWidget* widget, Each each) {
    for (GtkWidget* child = gtk_widget_get_first_child(widget); child != nullptr;
         child = gtk_widget_get_next_sibling(child)) {
        if (gtk_widget_should_layout(child)) each(child);
    }
}

int naturalWidth(GtkWidget* child) {
    int width = 0;
    gtk_widget_measure(child, GTK_ORIENTATION_HORIZONTAL, -1, nullptr, &width, nullptr, nullptr);
    return width;
}

int heightFor(GtkWidget* child, int width) {
    int height = 0;
    gtk_widget_measure(child, GTK_ORIENTATION_VERTICAL, width, nullptr, &height, nullptr, nullptr);
    return height;
}

std::vector<Line> linesOf(const WrapLayout& layout, GtkWidget* widget, int width) {
    std::vector<Line> lines;
    forEachShown(widget, [&](GtkWidget* child) {
        const int wanted = std::min(naturalWidth(child), width);
        const bool fits = !lines.empty() && lines.back().end + layout.columnSpacing + wanted <= width;
        const int x = fits ? lines.back().end + layout.columnSpacing : 0;
        if (!fits) lines.emplace_back();
        Line& line = lines.back();
        line.items.push_back({child, x, wanted, heightFor(child, wanted)});
        line.height = std::max(line.height, line.items.back().height);
        line.end = x + wanted;
    });
    return lines;
}

GtkSizeRequestMode requestMode(GtkLayoutManager*, GtkWidget*) { return GTK_SIZE_REQUEST_HEIGHT_FOR_WIDTH; }

void measureWidth(const WrapLayout& layout, GtkWidget* widget, int* minimum, int* natural) {
    *minimum = *natural = 0;
    forEachShown(widget, [&](GtkWidget* child) {
        int least = 0, wanted = 0;
        gtk_widget_measure(child, GTK_ORIENTATION_HORIZONTAL, -1, &least, &wanted, nullptr, nullptr);
        *minimum = std::max(*minimum, least);
        *natural += (*natural > 0 ? layout.columnSpacing : 0) + wanted;
    });
}

int heightOfLines(const WrapLayout& layout, GtkWidget* widget, int width) {
    int height = 0;
    for (const Line& line : linesOf(layout, widget, width)) {
        height += (height > 0 ? layout.lineSpacing : 0) + line.height;
    }
    return height;
}

void measure(GtkLayoutManager* manager, GtkWidget* widget, GtkOrientation orientation, int forSize,
             int* minimum, int* natural, int* minimumBaseline, int* naturalBaseline) {
    const auto& layout = *reinterpret_cast<WrapLayout*>(manager);
    *minimumBaseline = *naturalBaseline = -1;
    if (orientation == GTK_ORIENTATION_HORIZONTAL) return measureWidth(layout, widget, minimum, natural);
    *minimum = *natural = heightOfLines(layout, widget, forSize < 0 ? G_MAXINT / 2 : forSize);
}

void allocate(GtkLayoutManager* manager, GtkWidget* widget, int width, int, int) {
    const auto& layout = *reinterpret_cast<WrapLayout*>(manager);
    const bool mirrored = gtk_widget_get_direction(widget) == GTK_TEXT_DIR_RTL;
    int top = 0;
    for (const Line& line : linesOf(layout, widget, width)) {
        for (const Item& item : line.items) {
            const GtkAllocation place{mirrored ? width - item.x - item.width : item.x,
                                      top + (line.height - item.height) / 2, item.width, item.height};
            gtk_widget_size_allocate(item.child, &place, -1);
        }
        top += line.height + layout.lineSpacing;
    }
}

void orvane_studio_wrap_layout_init(WrapLayout*) {}

void orvane_studio_wrap_layout_class_init(WrapLayoutClass* type) {
    type->parent.get_request_mode = requestMode;
    type->parent.measure = measure;
    type->parent.allocate = allocate;
}

}  // namespace

namespace orvane::studio {

GtkLayoutManager* newWrapLayout(int columnSpacing, int lineSpacing) {
    auto* layout = static_cast<WrapLayout*>(g_object_new(orvane_studio_wrap_layout_get_type(), nullptr));
    layout->columnSpacing = columnSpacing;
    layout->lineSpacing = lineSpacing;
    return GTK_LAYOUT_MANAGER(layout);
}

}  // namespace orvane::studio
