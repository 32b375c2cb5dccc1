// SPDX-License-Identifier: MIT
#include "ui/model/menu_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

class MenuModelTest : public testing::Test {
 protected:
  MenuModelTest() {
    menu.setEntries({{"Old", "One", "1", false}, {"New", "Two", "2", true}});
    QObject::connect(&menu, &MenuModel::entriesChanged, [this] { ++changes; });
    QObject::connect(&menu, &MenuModel::modelReset, [this] { ++resets; });
  }

  MenuModel menu;
  int changes = 0;
  int resets = 0;
};

TEST_F(MenuModelTest, IsEmptyOutsideItsEntries) {
  const QModelIndex second = menu.index(1);
  EXPECT_EQ(menu.rowCount(), 2);
  EXPECT_EQ(menu.data(second, MenuModel::Heading), "New");
  EXPECT_EQ(menu.data(second, MenuModel::Title), "Two");
  EXPECT_EQ(menu.data(second, MenuModel::Chosen), true);
  EXPECT_EQ(menu.valueAt(1), "2");
  EXPECT_EQ(menu.valueAt(-1) + menu.valueAt(2), "");
  EXPECT_EQ(menu.rowCount(second), 0);
  EXPECT_FALSE(menu.data(second, Qt::DecorationRole).isValid());
}

TEST_F(MenuModelTest, HeadsOnlyTheFirstEntryOfASection) {
  menu.setEntries({{"A", "One", "1"}, {"A", "Two", "2"}, {"B", "Three", "3"}, {"A", "Four", "4"}});
  QStringList headings;
  for (int row = 0; row < menu.rowCount(); ++row) {
    headings += menu.data(menu.index(row), MenuModel::Heading).toString();
  }
  EXPECT_EQ(headings, QStringList({"A", "", "B", "A"}));
}

TEST_F(MenuModelTest, FindsTheNextRowByLetterAndWrapsAround) {
  menu.setEntries({{"", "Drop D", "1"}, {"", "Standard", "2"}, {"", "DADGAD", "3"}});
  for (const auto& [text, from, found] :
       {std::tuple("d", -1, 0), {"d", 0, 2}, {"D", 2, 0}, {"s", 1, 1}, {"x", 1, -1}, {"", 1, -1}}) {
    EXPECT_EQ(menu.rowStartingWith(text, from), found) << text << from;
  }
  menu.setEntries({});
  EXPECT_EQ(menu.rowStartingWith("d", -1), -1);
}

TEST_F(MenuModelTest, ReportsOnlyEntriesThatDiffer) {
  menu.setEntries({{"Old", "One", "1", false}, {"New", "Two", "2", true}});
  EXPECT_EQ(std::pair(changes, resets), std::pair(0, 0));
  EXPECT_EQ(menu.chosenRow(), 1);
  menu.setEntries({{"Old", "One", "1", true}, {"New", "Two", "2", false}});
  EXPECT_EQ(std::pair(changes, resets), std::pair(1, 1));
  EXPECT_EQ(menu.chosenRow(), 0);
  menu.setEntries({{"Old", "One", "1", false}});
  EXPECT_EQ(menu.chosenRow(), -1);
}

}  // namespace
}  // namespace corvane
