#include "tools/pencil_tool.h"

#include "platform/graphics/shapes.h"
#include "support/failing_allocator.h"
#include "tools/freehand_fixture.h"

namespace orvane {
namespace {

using test::Canvas;
using test::samePoint;

class Pencil : public test::Freehand {
 protected:
    Canvas overlay() {
        Canvas canvas;
        pencil.Draw(canvas.view());
        return canvas;
    }
    PencilTool pencil{pen, brush};
};

TEST_F(Pencil, DrawsOnePolylineWithThePen) {
    pen.colour = 0x800000FFu;
    pen.width = 5;
    const IntPoint way[] = {{5, 5}, {40, 30}, {5, 30}, {40, 5}};
    for (const IntPoint point : way) {
        EXPECT_TRUE(pencil.AppendPoint(point));
        EXPECT_FALSE(pencil.AppendPoint(point)) << "a mouse that rests adds nothing";
    }
    Canvas seen, drawn;
    drawLines(seen.view(), *pen.current(), way);
    EXPECT_EQ(overlay(), seen);

    const IntPoint mapped[] = {{3, 2}, {20, 15}, {3, 15}, {20, 2}};
    drawLines(drawn.view(), *pen.current(), mapped);
    pencil.commit(document, [](IntPoint p) { return IntPoint{(p.x + 1) / 2, p.y / 2}; });
    EXPECT_EQ(image(), drawn);
    EXPECT_EQ(steps(), 1);
    EXPECT_EQ(overlay(), Canvas()) << "the release ends the trail";
}

TEST_F(Pencil, HistoryStepsOfCommits) {
    const struct {
        const char* what;
        int points, dashStyle, steps;
    } rows[] = {
        {"nothing", 0, 0, 0}, {"a click", 1, 0, 1}, {"a line", 2, 0, 1}, {"a line without pen", 2, 9, 0}};
    for (const auto& row : rows) {
        pen.dashStyle = row.dashStyle;
        for (int i = 0; i < row.points; ++i) pencil.AppendPoint({10 + 20 * i, 10});
        const int before = steps();
        pencil.commit(document, samePoint);
        EXPECT_EQ(steps() - before, row.steps) << row.what;
        pen.dashStyle = 0;
        EXPECT_EQ(overlay(), Canvas()) << row.what << " stays pending";
    }
}

TEST_F(Pencil, WithoutMemoryTheImageStaysAsItIs) {
    for (int i = 0; i < 30; ++i) pencil.AppendPoint({i, 10});
    FailingAllocator::arm(1, 1000);
    pencil.commit(document, samePoint);
    EXPECT_TRUE(FailingAllocator::disarm());
    EXPECT_EQ(steps(), 0);
    EXPECT_EQ(image(), Canvas());
}

}  // namespace
}  // namespace orvane
