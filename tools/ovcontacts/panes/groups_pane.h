#pragma once

#include <QtWidgets/QTreeView>

#include <OVAddressBookQt/groups_model.h>

namespace ovcontacts {

/// The pane of groups and tags. What is selected there is what the persons are chosen by.
class GroupsPane final : public QTreeView {
  Q_OBJECT

 public:
  explicit GroupsPane(QWidget* parent = nullptr);

  void setBook(OVQtBook* book);
  [[nodiscard]] OVRef<IOVGroup> selectedGroup() const;
  [[nodiscard]] OVString selectedTag() const;
  /// Everybody again.
  void selectEverybody();
  void select(OVGroupsModel::Kind kind, const QString& ID);
  /// Begins to edit the name of a group.
  void editGroup(const OVRef<IOVGroup>& group);
  /// Takes over a name that is being typed.
  void endEditing();

 signals:
  /// Also when members of what is selected came or went.
  void selectionChosen();

 private:
  OVGroupsModel model_;
};

}  // namespace ovcontacts
