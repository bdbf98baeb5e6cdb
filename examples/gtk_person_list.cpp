#include <OVAddressBookSDK/OVAddressBookSDK.h>
#include <OVAddressBookVCard/vcard_book.h>
#include <gtk/gtk.h>

#include <iostream>
#include <string>
#include <utility>
#include <vector>

/// The persons whom a typed text finds, in order. GTK asks for those that it shows.
struct Persons {
  OVRef<OVAddressBook> book;
  OVString typed;
  std::vector<OVRef<IOVPerson>> found;
  OVNotificationObserver observer;

  void find() {
    found.clear();
    const OVPersonMatcher matcher(typed);
    for (const auto& person : book->allPersons()) {
      if (matcher.matches(*person)) found.push_back(person);
    }
    OVPersonSorter(OVPersonOrder::Name).sort(found);
  }
};

struct PersonList {
  GObject parent;
  Persons* persons;
};
struct PersonListClass {
  GObjectClass parent;
};

static GType itemType(GListModel*) { return GTK_TYPE_STRING_OBJECT; }

static guint itemCount(GListModel* model) {
  return static_cast<guint>(reinterpret_cast<PersonList*>(model)->persons->found.size());
}

static gpointer itemAt(GListModel* model, guint position) {
  const auto& found = reinterpret_cast<PersonList*>(model)->persons->found;
  if (position >= found.size()) return nullptr;
  return gtk_string_object_new(ov::headingOf(*found[position]).main.str().c_str());
}

static void listModel(GListModelInterface* interface) {
  interface->get_item_type = itemType;
  interface->get_n_items = itemCount;
  interface->get_item = itemAt;
}

G_DEFINE_TYPE_WITH_CODE(PersonList, person_list, G_TYPE_OBJECT,
                        G_IMPLEMENT_INTERFACE(G_TYPE_LIST_MODEL, listModel))

static void person_list_init(PersonList* list) { list->persons = new Persons; }

static void person_list_class_init(PersonListClass* type) {
  G_OBJECT_CLASS(type)->finalize = [](GObject* object) {
    delete reinterpret_cast<PersonList*>(object)->persons;
    G_OBJECT_CLASS(person_list_parent_class)->finalize(object);
  };
}

static void findAgain(PersonList* list) {
  const guint before = itemCount(G_LIST_MODEL(list));
  list->persons->find();
  g_list_model_items_changed(G_LIST_MODEL(list), 0, before, itemCount(G_LIST_MODEL(list)));
}

/// Follows reports that all persons have changed; on the main loop's thread.
static PersonList* personListOf(OVRef<OVAddressBook> book) {
  auto* const list = static_cast<PersonList*>(g_object_new(person_list_get_type(), nullptr));
  list->persons->book = std::move(book);
  list->persons->observer = OVNotificationCenter::defaultCenter()->addObserver(
      OVPersonChangeAllPersonNotification, [list](const OVNotification&) { findAgain(list); });
  findAgain(list);
  return list;
}

/// Connect it to the signal "search-changed" of a GtkSearchEntry.
static void setTyped(PersonList* list, const char* text) {
  list->persons->typed = text;
  findAgain(list);
}

static void showWindow(GtkApplication* application, gpointer list) {
  GtkListItemFactory* const factory = gtk_signal_list_item_factory_new();
  g_signal_connect(factory, "setup", G_CALLBACK(+[](GtkListItemFactory*, GtkListItem* item) {
                     gtk_list_item_set_child(item, gtk_label_new(""));
                   }),
                   nullptr);
  g_signal_connect(factory, "bind", G_CALLBACK(+[](GtkListItemFactory*, GtkListItem* item) {
                     auto* const name = GTK_STRING_OBJECT(gtk_list_item_get_item(item));
                     gtk_label_set_text(GTK_LABEL(gtk_list_item_get_child(item)),
                                        gtk_string_object_get_string(name));
                   }),
                   nullptr);
  auto* const selection = gtk_single_selection_new(G_LIST_MODEL(g_object_ref(list)));
  GtkWidget* const window = gtk_application_window_new(application);
  gtk_window_set_child(GTK_WINDOW(window),
                       gtk_list_view_new(GTK_SELECTION_MODEL(selection), factory));
  gtk_window_present(GTK_WINDOW(window));
}

int main(int argc, char** argv) {
  const auto cards = OVVCardBook::init();
  cards->loadWithData(OVData::dataWithText(
      "BEGIN:VCARD\r\nVERSION:4.0\r\nN:Gr\u00f6\u00dfling;J\u00fcrgen;;;\r\nEND:VCARD\r\n"
      "BEGIN:VCARD\r\nVERSION:4.0\r\nN:Halonen;Mira;;;\r\nTEL:+44 (55) 50-23\r\nEND:VCARD\r\n"));
  PersonList* const list = personListOf(cards);
  for (const char* typed : {"", "gross", "5550"}) {
    setTyped(list, typed);
    std::string names;
    for (guint i = 0; i < itemCount(G_LIST_MODEL(list)); ++i) {
      auto* const name = GTK_STRING_OBJECT(itemAt(G_LIST_MODEL(list), i));
      names += std::string(" ") + gtk_string_object_get_string(name);
      g_object_unref(name);
    }
    std::cout << "'" << typed << "':" << names << "\n";
  }
  if (argc > 1) {
    GtkApplication* const application = gtk_application_new(nullptr, G_APPLICATION_NON_UNIQUE);
    g_signal_connect(application, "activate", G_CALLBACK(showWindow), list);
    g_application_run(G_APPLICATION(application), 1, argv);
    g_object_unref(application);
  }
  g_object_unref(list);
}
