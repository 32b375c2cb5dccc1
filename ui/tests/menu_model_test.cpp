#include "ui/menu_model.h"

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

TEST_F(MenuModelTest, ShowsWhatAnEntryIsMadeOf) {
  const QModelIndex second = menu.index(1);
  EXPECT_EQ(menu.data(second, MenuModel::Heading), "New");
  EXPECT_EQ(menu.data(second, MenuModel::Title), "Two");
  EXPECT_EQ(menu.data(second, MenuModel::Value), "2");
  EXPECT_EQ(menu.data(second, MenuModel::Chosen), true);
  EXPECT_FALSE(menu.data(second, Qt::DecorationRole).isValid());
}

TEST_F(MenuModelTest, NamesItsRolesForTheScreen) {
  const auto names = menu.roleNames();
  EXPECT_EQ(names[MenuModel::Heading], "heading");
  EXPECT_EQ(names[MenuModel::Title], "title");
  EXPECT_EQ(names[MenuModel::Value], "value");
  EXPECT_EQ(names[MenuModel::Chosen], "chosen");
}

TEST_F(MenuModelTest, IsAListWithoutBranches) {
  EXPECT_EQ(menu.rowCount(), 2);
  EXPECT_EQ(menu.rowCount(menu.index(0)), 0);
}

TEST_F(MenuModelTest, OnlyTheFirstEntryOfASectionHasAHeading) {
  menu.setEntries({{"A", "One", "1"}, {"A", "Two", "2"}, {"B", "Three", "3"}, {"A", "Four", "4"}});
  std::vector<QString> headings;
  for (int row = 0; row < menu.rowCount(); ++row) {
    headings.push_back(menu.data(menu.index(row), MenuModel::Heading).toString());
  }
  EXPECT_EQ(headings, (std::vector<QString>{"A", "", "B", "A"}));
}

TEST_F(MenuModelTest, FindsTheChosenRow) {
  EXPECT_EQ(menu.chosenRow(), 1);
  menu.setEntries({{"Old", "One", "1", false}});
  EXPECT_EQ(menu.chosenRow(), -1);
}

TEST_F(MenuModelTest, FindsTheNextRowThatStartsWithALetterRoundAndRound) {
  menu.setEntries({{"", "Drop D", "1"}, {"", "Standard", "2"}, {"", "DADGAD", "3"}});
  EXPECT_EQ(menu.rowStartingWith("d", -1), 0);
  EXPECT_EQ(menu.rowStartingWith("d", 0), 2);
  EXPECT_EQ(menu.rowStartingWith("D", 2), 0);
  EXPECT_EQ(menu.rowStartingWith("s", 1), 1);
  EXPECT_EQ(menu.rowStartingWith("x", 1), -1);
  EXPECT_EQ(menu.rowStartingWith("", 1), -1);
  menu.setEntries({});
  EXPECT_EQ(menu.rowStartingWith("d", -1), -1);
}

TEST_F(MenuModelTest, HasNothingOutsideItsRows) {
  EXPECT_EQ(menu.valueAt(1), "2");
  for (const int row : {-1, 2}) {
    EXPECT_TRUE(menu.valueAt(row).isEmpty());
  }
}

TEST_F(MenuModelTest, TellsOfNewEntriesOnce) {
  menu.setEntries({{"Old", "One", "1", true}, {"New", "Two", "2", false}});
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(resets, 1);
  EXPECT_EQ(menu.chosenRow(), 0);
}

TEST_F(MenuModelTest, IsSilentWhenNothingChanged) {
  menu.setEntries({{"Old", "One", "1", false}, {"New", "Two", "2", true}});
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(resets, 0);
}

}  // namespace
}  // namespace corvane
