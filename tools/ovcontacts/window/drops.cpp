#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDragEnterEvent>

#include <algorithm>
#include <exception>

#include "loading/file_source.h"
#include "loading/mailbox.h"
#include "saving/book_bytes.h"
#include "window/main_window.h"

/// What is dropped on a window: vCards, files of them, data blocks.

namespace ovcontacts {

namespace {

QStringList filesIn(const QMimeData& data) {
  QStringList paths;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) paths += url.toLocalFile();
  }
  return paths;
}

bool areCards(const QStringList& paths) {
  return std::all_of(paths.begin(), paths.end(),
                     [](const QString& path) { return formatOf(path) == Format::Cards; });
}

}  // namespace

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  // What comes from our own list is here already.
  if (event->source() != nullptr) return;
  const QMimeData& data = *event->mimeData();
  if (data.hasFormat(QStringLiteral("text/vcard")) || !filesIn(data).isEmpty()) {
    event->acceptProposedAction();
  }
}

/// Cards are added to the book that is here; another book takes its place.
void MainWindow::dropEvent(QDropEvent* event) {
  const QMimeData& data = *event->mimeData();
  const QStringList paths = filesIn(data);
  if (data.hasFormat(QStringLiteral("text/vcard"))) {
    addCards(data.data(QStringLiteral("text/vcard")));
  } else if (!paths.isEmpty()) {
    const bool isNew = document_.path().isEmpty() && document_.keeper() == nullptr &&
                       document_.book()->book()->allPersonsCount() == 0;
    !areCards(paths) || (isNew && paths.size() == 1) ? openFile(paths.front()) : addFiles(paths);
  }
  event->acceptProposedAction();
}

void MainWindow::addCards(const QByteArray& cards) {
  const auto from = bookOfCards(cards);
  if (from != nullptr) return addAll({from});
  showWrong(tr("Nothing was added."), tr("What was dropped contains no contact."));
}

void MainWindow::addFiles(const QStringList& paths) {
  inBackground(mailbox_, [this, paths, reading = reading_]() -> std::function<void()> {
    std::vector<OVRef<OVAddressBook>> books;
    for (const QString& path : paths) {
      try {
        books.push_back(FileSource(path).open([](std::uint64_t, std::uint64_t) {}, *reading).book);
      } catch (const std::exception& error) {
        return [this, name = QFileInfo(path).fileName(), why = QString::fromUtf8(error.what())] {
          showWrong(tr("\u201c%1\u201d could not be opened.").arg(name), why);
        };
      }
    }
    return [this, books] { addAll(books); };
  });
}

void MainWindow::addAll(const std::vector<OVRef<OVAddressBook>>& books) {
  OVQtBook::Persons persons;
  for (const auto& book : books) {
    for (const auto& person : book->allPersons()) persons.push_back(person);
  }
  const auto came = document_.book()->addCopies(persons);
  if (!came.empty()) persons_->reveal(came.front());
}

}  // namespace ovcontacts
