#include <nolk/core/QXTimeFmtList.h>

#include <gtest/gtest.h>

#include <cstddef>

#include "values/OpenSnapshot.h"

namespace nolk {
namespace {

TEST(QXTimeFmtList, HasItsFieldsInOrder) {
    EXPECT_EQ(offsetof(QXTimeFmtList, next), 0u);
    EXPECT_EQ(offsetof(QXTimeFmtList, component), sizeof(void*));
    EXPECT_EQ(offsetof(QXTimeFmtList, offset), sizeof(void*) + sizeof(int));
}

TEST(QXTimeFmtList, TellsWhereComponentsStandInTheTextWithoutThem) {
    const test::OpenSnapshot locale;
    const LocaleTimeFormat& date = *locale.timeFormat('x');
    EXPECT_EQ(date.text, "//");
    const struct {
        int component;
        int offset;
    } rows[] = {{7, 0}, {13, 1}, {1, 2}};
    const QXTimeFmtList* node = date.components;
    for (const auto& row : rows) {
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(node->component, row.component);
        EXPECT_EQ(node->offset, row.offset);
        node = node->next;
    }
    EXPECT_EQ(node, nullptr);
}

}  // namespace
}  // namespace nolk
