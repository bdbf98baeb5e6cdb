#include "dialogs/conflict_dialog.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListView>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <OVAddressBookQt/person_sheet.h>
#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookVCard/vcard_book.h>

#include "panes/sheet_delegate.h"

namespace ovcontacts {

namespace {

QString nameIn(const OVRef<OVAddressBook>& book) {
  if (book == nullptr) return {};
  const auto persons = book->allPersons();
  if (!persons.empty()) return ov::qt::qString(persons.front()->showName());
  const auto groups = book->rootGroups();
  return groups.empty() ? QString() : ov::qt::qString(groups.front()->displayName());
}

OVRef<OVAddressBook> bookOf(const OVString& card) {
  if (card.isNull()) return nullptr;
  const auto book = OVVCardBook::init();
  book->loadWithData(OVData::dataWithText(card.str()));
  return book;
}

}  // namespace

ConflictDialog::ConflictDialog(const LiveConflict& conflict, QWidget* parent) : QDialog(parent) {
  setWindowTitle(tr("Changed Here and Elsewhere"));
  QString name = nameIn(bookOf(conflict.theirs));
  if (name.isEmpty()) name = nameIn(bookOf(conflict.ours));
  auto* const question = new QLabel(
      tr("\u201c%1\u201d was changed here and elsewhere. Which version do you want to keep?")
          .arg(name),
      this);
  question->setWordWrap(true);
  question->setTextFormat(Qt::PlainText);
  auto* const sides = new QHBoxLayout;
  addSide(*sides, tr("Here"), conflict.ours);
  addSide(*sides, tr("Elsewhere"), conflict.theirs);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  const auto add = [&](const QString& text, LiveChoice choice) {
    auto* const button = buttons->addButton(text, QDialogButtonBox::AcceptRole);
    connect(button, &QPushButton::clicked, this, [this, choice] {
      choice_ = choice;
      accept();
    });
  };
  add(tr("Keep &Ours"), LiveChoice::Ours);
  add(tr("Keep &Theirs"), LiveChoice::Theirs);
  if (!conflict.ours.isNull() && !conflict.theirs.isNull()) add(tr("Keep &Both"), LiveChoice::Both);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(question);
  layout->addLayout(sides, 1);
  layout->addWidget(buttons);
  resize(760, 420);
}

void ConflictDialog::addSide(QHBoxLayout& sides, const QString& title, const OVString& card) {
  auto* const side = new QVBoxLayout;
  sides.addLayout(side, 1);
  auto* const heading = new QLabel(title, this);
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  side->addWidget(heading);
  const auto kept = bookOf(card);
  if (kept == nullptr || kept->allPersonsCount() == 0) {
    auto* const text = new QLabel(card.isNull() ? tr("It was removed.") : nameIn(kept), this);
    text->setTextFormat(Qt::PlainText);
    side->addWidget(text, 1, Qt::AlignTop);
    return;
  }
  auto* const book = new OVQtBook(kept, this);
  auto* const sheet = new OVPersonSheet(book, this);
  sheet->setPerson(kept->allPersons().front());
  auto* const list = new QListView(this);
  list->setModel(sheet);
  list->setItemDelegate(new SheetDelegate(list));
  list->setResizeMode(QListView::Adjust);
  list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list->setAccessibleName(title);
  side->addWidget(list, 1);
}

}  // namespace ovcontacts
