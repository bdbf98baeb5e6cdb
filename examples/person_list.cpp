#include <OVAddressBookQt/persons_filter.h>
#include <OVAddressBookVCard/vcard_book.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QListView>
#include <iostream>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const auto cards = OVVCardBook::init();
  cards->loadWithData(OVData::dataWithText(
      "BEGIN:VCARD\r\nVERSION:4.0\r\nN:Gr\u00f6\u00dfling;J\u00fcrgen;;;\r\nEND:VCARD\r\n"
      "BEGIN:VCARD\r\nVERSION:4.0\r\nN:Halonen;Mira;;;\r\nTEL:+44 (55) 50-23\r\nEND:VCARD\r\n"));

  OVQtBook book(cards);
  OVPersonsModel persons(&book);
  OVPersonsFilter found(&persons);
  QListView list;
  list.setModel(&found);
  list.show();

  for (const char* typed : {"", "gross", "5550"}) {
    found.setText(typed);  // connect it to QLineEdit::textChanged
    std::cout << "'" << typed << "':";
    for (int row = 0; row < found.rowCount(); ++row)
      std::cout << " " << qPrintable(found.index(row, 0).data().toString());
    std::cout << "\n";
  }
  return argc > 1 ? QApplication::exec() : 0;
}
