// SPDX-License-Identifier: MIT
// The example of docs/qt-editing.md.

#include "QtModels/Editing/GroupEditor.h"
#include "QtModels/Editing/GroupStep.h"
#include "QtModels/Views/GroupActions.h"
#include "QtModels/Views/GroupTreeView.h"

#include "QtModels/Support/EditedDocument.h"
#include "QtModels/Support/GuideExample.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtGui/QAction>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>

#include <gtest/gtest.h>

namespace Tarvik {
namespace {

// [the example begins]
class GroupsWindow : public QMainWindow {
public:
  GroupsWindow(CommandHistory& history, std::shared_ptr<TKGroupProvider<Identifier>> provider)
  {
    auto* model = new GroupItemModel<Identifier>(provider, this);
    auto* editor = new GroupEditor<Identifier>(*model, handlerIn<Identifier>(history, provider));
    connect(editor, &GroupEditorBase::failed, statusBar(),
            [this](const QString& message) { statusBar()->showMessage(message); });

    auto* view = new GroupTreeView(this);
    view->setModel(model);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
    setCentralWidget(view);
    menuBar()->addMenu(tr("&Groups"))->addActions((new GroupActions(view))->actions());
  }
};
// [the example ends]

TEST(EditingGuideTest, HasTheExampleThatIsTestedHere)
{
  expectGuideToHaveTheExample("docs/qt-editing.md", "tests/QtModels/Views/EditingGuideTest.cpp");
}

TEST(EditingGuideTest, ShowsAWindowInWhichGroupsAreEdited)
{
  EditedDocument<Identifier> document("B[] A[] ");
  const GroupsWindow window(document.history, document.provider);
  const auto actions = window.findChild<GroupActions*>();
  ASSERT_NE(actions, nullptr);
  actions->action(GroupActions::SortGroups)->trigger();
  EXPECT_EQ(document.text(), "A[] B[] ");
  EXPECT_EQ(document.steps(), Texts{"Sort Groups"});
}

}
}
