#pragma once

#include <QtCore/QAbstractProxyModel>

#include <cstdint>
#include <memory>
#include <vector>

#include <OVAddressBookQt/persons_model.h>
#include <OVAddressBookSDK/person_matcher.h>

/// Those persons of an `OVPersonsModel` whom a typed text finds and who are in a group or carry a
/// tag, in the order of that model.
///
/// It keeps a number for each person it shows, 4 bytes, and nothing while it shows everybody. A new
/// text, group or tag resets the model; a view that is to keep its current person selects it again
/// (`rowOf`). A person is in a group when the group returns the same object as the book.
class OVPersonsFilter : public QAbstractProxyModel {
  Q_OBJECT

 public:
  /// What rows are dragged as: the IDs of their persons, one a line, in UTF-8.
  static constexpr const char* kMimeType = "application/x-ovaddressbook-person-ids";

  /// Shows what is in `persons`, which outlives it.
  explicit OVPersonsFilter(OVPersonsModel* persons, QObject* parent = nullptr);

  /// What is typed: see `OVPersonMatcher`.
  void setText(const QString& text);
  [[nodiscard]] QString text() const { return text_; }
  /// Only persons with these IDs of the book, for example those of a tag.
  void setPersons(const OVList<OVString>& IDs);
  /// Only members of the group, its sub-groups' included. Members who come later are seen when the
  /// group is set again.
  void setGroup(const OVRef<IOVGroup>& group);
  /// Everybody whom the text finds.
  void setEverybody();

  [[nodiscard]] OVRef<IOVPerson> personAt(int row) const;
  /// -1 for a person who is not shown.
  [[nodiscard]] int rowOf(const OVRef<IOVPerson>& person) const;

  [[nodiscard]] QModelIndex mapToSource(const QModelIndex& index) const override;
  [[nodiscard]] QModelIndex mapFromSource(const QModelIndex& index) const override;
  [[nodiscard]] QModelIndex index(int row, int column,
                                  const QModelIndex& parent = {}) const override;
  [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QStringList mimeTypes() const override;
  [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;

 private:
  using Chosen = std::vector<const IOVPerson*>;

  void follow();
  void choose(std::unique_ptr<Chosen> chosen);
  void refill();
  /// Whether everybody is shown; `rows_` is empty then.
  [[nodiscard]] bool isWhole() const { return chosen_ == nullptr && matcher_.matchesAll(); }
  [[nodiscard]] int sourceRowOf(int row) const;
  [[nodiscard]] bool accepts(const OVRef<IOVPerson>& person) const;
  [[nodiscard]] std::vector<std::uint32_t>::iterator firstAtOrAfter(int sourceRow);
  [[nodiscard]] int placeOf(int sourceRow) const;

  void sourceInserted(int first, int last);
  void sourceRemoved(int first, int last);
  void sourceAboutToMove(int from, int to);
  void sourceMoved(int from, int to);
  void sourceChanged(int first, int last);

  OVPersonsModel* persons_;
  QString text_;
  OVPersonMatcher matcher_{nullptr};
  std::unique_ptr<Chosen> chosen_;  // null for everybody; sorted
  std::vector<std::uint32_t> rows_;
  bool isMoving_ = false;
};
