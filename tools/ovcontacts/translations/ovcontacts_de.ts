<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Application</name>
    <message>
        <source>Contacts</source>
        <translation>Kontakte</translation>
    </message>
    <message>
        <source>Shows and changes address books.</source>
        <translation>Zeigt und ändert Adressbücher.</translation>
    </message>
    <message>
        <source>A data block, or a file of vCards.</source>
        <translation>Ein Datenblock oder eine Datei mit vCards.</translation>
    </message>
</context>
<context>
    <name>Live</name>
    <message>
        <source>It was cancelled.</source>
        <translation>Es wurde abgebrochen.</translation>
    </message>
    <message>
        <source>It took too long.</source>
        <translation>Es hat zu lange gedauert.</translation>
    </message>
    <message>
        <source>The desktop&apos;s service for address books does not answer.</source>
        <translation>Der Dienst der Arbeitsumgebung für Adressbücher antwortet nicht.</translation>
    </message>
    <message>
        <source>The book has been removed.</source>
        <translation>Das Adressbuch wurde entfernt.</translation>
    </message>
    <message>
        <source>The book is read-only.</source>
        <translation>Das Adressbuch darf nur gelesen werden.</translation>
    </message>
    <message>
        <source>The server cannot be reached.</source>
        <translation>Der Server ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>The server asks for another password.</source>
        <translation>Der Server verlangt ein anderes Passwort.</translation>
    </message>
    <message>
        <source>Others have changed the same contacts.</source>
        <translation>Andere haben dieselben Kontakte geändert.</translation>
    </message>
    <message>
        <source>The service rejected some of the changes.</source>
        <translation>Der Dienst hat einige der Änderungen abgelehnt.</translation>
    </message>
</context>
<context>
    <name>OVGroupsModel</name>
    <message>
        <source>All Contacts</source>
        <translation>Alle Kontakte</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Schlagwörter</translation>
    </message>
</context>
<context>
    <name>OVPersonSheet</name>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1, %2: %3</source>
        <translation>%1, %2: %3</translation>
    </message>
</context>
<context>
    <name>OVQtBook</name>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>New Contact</source>
        <translation>Neuer Kontakt</translation>
    </message>
    <message>
        <source>Remove Contacts</source>
        <translation>Kontakte entfernen</translation>
    </message>
    <message>
        <source>New Group</source>
        <translation>Neue Gruppe</translation>
    </message>
    <message>
        <source>Rename Group</source>
        <translation>Gruppe umbenennen</translation>
    </message>
    <message>
        <source>Remove Group</source>
        <translation>Gruppe entfernen</translation>
    </message>
    <message>
        <source>Add to Group</source>
        <translation>Zur Gruppe hinzufügen</translation>
    </message>
    <message>
        <source>Remove from Group</source>
        <translation>Aus der Gruppe nehmen</translation>
    </message>
    <message>
        <source>Add Tag</source>
        <translation>Schlagwort hinzufügen</translation>
    </message>
    <message>
        <source>Remove Tag</source>
        <translation>Schlagwort entfernen</translation>
    </message>
    <message>
        <source>Rename Tag</source>
        <translation>Schlagwort umbenennen</translation>
    </message>
</context>
<context>
    <name>Opening</name>
    <message>
        <source>It is not a regular file and is larger than 512 MiB.</source>
        <translation>Das ist keine gewöhnliche Datei, und sie hat nach 512 MiB kein Ende.</translation>
    </message>
    <message>
        <source>The data block is damaged: %1</source>
        <translation>Der Datenblock ist beschädigt: %1</translation>
    </message>
    <message>
        <source>The data block holds something other than contacts.</source>
        <translation>Der Datenblock enthält etwas anderes als Kontakte.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>The file holds neither a data block nor vCards.</source>
        <translation>Die Datei enthält weder einen Datenblock noch vCards.</translation>
    </message>
    <message>
        <source>The picture is larger than 64 MiB.</source>
        <translation>Das Bild ist größer als 64 MiB.</translation>
    </message>
    <message>
        <source>It is not a picture that can be read.</source>
        <translation>Es ist kein lesbares Bild.</translation>
    </message>
</context>
<context>
    <name>Words</name>
    <message>
        <source>(no name)</source>
        <translation>(ohne Namen)</translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Schlagwörter</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Prefix</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Suffix</source>
        <translation>Namenszusatz</translation>
    </message>
    <message>
        <source>Maiden Name</source>
        <translation>Geburtsname</translation>
    </message>
    <message>
        <source>Nickname</source>
        <translation>Spitzname</translation>
    </message>
    <message>
        <source>Company</source>
        <translation>Firma</translation>
    </message>
    <message>
        <source>Department</source>
        <translation>Abteilung</translation>
    </message>
    <message>
        <source>Job Title</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Birthday</source>
        <translation>Geburtstag</translation>
    </message>
    <message>
        <source>First Name Phonetic</source>
        <translation>Vorname (Aussprache)</translation>
    </message>
    <message>
        <source>Last Name Phonetic</source>
        <translation>Nachname (Aussprache)</translation>
    </message>
    <message>
        <source>URL</source>
        <translation>Webadresse</translation>
    </message>
    <message>
        <source>Instant Message</source>
        <translation>Chat</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Related Names</source>
        <translation>Angehörige</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Is Organization</source>
        <translation>Ist eine Organisation</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Privat</translation>
    </message>
    <message>
        <source>Work</source>
        <translation>Arbeit</translation>
    </message>
    <message>
        <source>Mobile</source>
        <translation>Mobil</translation>
    </message>
    <message>
        <source>Work fax</source>
        <translation>Fax (Arbeit)</translation>
    </message>
    <message>
        <source>Home fax</source>
        <translation>Fax (privat)</translation>
    </message>
    <message>
        <source>Pager</source>
        <translation>Pager</translation>
    </message>
    <message>
        <source>Anniversary</source>
        <translation>Jahrestag</translation>
    </message>
    <message>
        <source>Spouse</source>
        <translation>Ehepartner</translation>
    </message>
    <message>
        <source>Child</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>Parent</source>
        <translation>Elternteil</translation>
    </message>
    <message>
        <source>Friend</source>
        <translation>Freund</translation>
    </message>
    <message>
        <source>Assistant</source>
        <translation>Assistenz</translation>
    </message>
    <message>
        <source>Home page</source>
        <translation>Webseite</translation>
    </message>
    <message>
        <source>Street</source>
        <translation>Straße</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>Province</source>
        <translation>Provinz</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Bundesstaat</translation>
    </message>
    <message>
        <source>Postal Code</source>
        <translation>Postleitzahl</translation>
    </message>
    <message>
        <source>ZIP</source>
        <translation>Postleitzahl</translation>
    </message>
    <message>
        <source>Country or Region</source>
        <translation>Land oder Region</translation>
    </message>
    <message>
        <source>Adjacent area</source>
        <translation>Umgebung</translation>
    </message>
    <message>
        <source>County</source>
        <translation>Grafschaft</translation>
    </message>
    <message>
        <source>Island</source>
        <translation>Insel</translation>
    </message>
    <message>
        <source>Postal districts</source>
        <translation>Postbezirk</translation>
    </message>
    <message>
        <source>Jurisdiction</source>
        <translation>Gebiet</translation>
    </message>
    <message>
        <source>Town/City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Postcode</source>
        <translation>Postleitzahl</translation>
    </message>
    <message>
        <source>Suburb</source>
        <translation>Stadtteil</translation>
    </message>
    <message>
        <source>Country/City</source>
        <translation>Land/Ort</translation>
    </message>
    <message>
        <source>Prefecture</source>
        <translation>Präfektur</translation>
    </message>
    <message>
        <source>Further Divisions</source>
        <translation>Weitere Einteilung</translation>
    </message>
</context>
<context>
    <name>ovcontacts::AddressEditor</name>
    <message>
        <source>(not known)</source>
        <translation>(nicht bekannt)</translation>
    </message>
    <message>
        <source>&amp;Layout of:</source>
        <translation>&amp;Form von:</translation>
    </message>
</context>
<context>
    <name>ovcontacts::ConflictDialog</name>
    <message>
        <source>Changed Here and Elsewhere</source>
        <translation>Hier und anderswo geändert</translation>
    </message>
    <message>
        <source>“%1” was changed here and elsewhere. Which version do you want to keep?</source>
        <translation>„%1“ wurde hier und anderswo geändert. Was soll bleiben?</translation>
    </message>
    <message>
        <source>Here</source>
        <translation>Hier</translation>
    </message>
    <message>
        <source>Elsewhere</source>
        <translation>Anderswo</translation>
    </message>
    <message>
        <source>Keep &amp;Ours</source>
        <translation>&amp;Unseres behalten</translation>
    </message>
    <message>
        <source>Keep &amp;Theirs</source>
        <translation>&amp;Das andere behalten</translation>
    </message>
    <message>
        <source>Keep &amp;Both</source>
        <translation>&amp;Beide behalten</translation>
    </message>
    <message>
        <source>It was removed.</source>
        <translation>Es wurde entfernt.</translation>
    </message>
</context>
<context>
    <name>ovcontacts::Document</name>
    <message>
        <source>New Contacts</source>
        <translation>Neue Kontakte</translation>
    </message>
</context>
<context>
    <name>ovcontacts::GroupsPane</name>
    <message>
        <source>Groups and tags</source>
        <translation>Gruppen und Schlagwörter</translation>
    </message>
</context>
<context>
    <name>ovcontacts::LiveKeeper</name>
    <message>
        <source>There is not enough memory.</source>
        <translation>Der Speicher reicht nicht aus.</translation>
    </message>
</context>
<context>
    <name>ovcontacts::LiveMenu</name>
    <message>
        <source>Open &amp;Live Book</source>
        <translation>Adressbuch der &amp;Arbeitsumgebung öffnen</translation>
    </message>
    <message>
        <source>Looking for books…</source>
        <translation>Adressbücher werden gesucht…</translation>
    </message>
    <message>
        <source>No address books</source>
        <translation>Es gibt keine</translation>
    </message>
</context>
<context>
    <name>ovcontacts::Loader</name>
    <message>
        <source>There is not enough memory.</source>
        <translation>Der Speicher reicht nicht aus.</translation>
    </message>
</context>
<context>
    <name>ovcontacts::MainWindow</name>
    <message>
        <source>&amp;Contact</source>
        <translation>&amp;Kontakt</translation>
    </message>
    <message>
        <source>&amp;New Contact</source>
        <translation>&amp;Neuer Kontakt</translation>
    </message>
    <message>
        <source>&amp;Remove Contacts</source>
        <translation>Kontakte &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Edit Value…</source>
        <translation>Wert &amp;bearbeiten…</translation>
    </message>
    <message>
        <source>Re&amp;move Value</source>
        <translation>Wert ent&amp;fernen</translation>
    </message>
    <message>
        <source>Ma&amp;ke It the Main One</source>
        <translation>Zum &amp;wichtigsten machen</translation>
    </message>
    <message>
        <source>&amp;Open It</source>
        <translation>&amp;Öffnen</translation>
    </message>
    <message>
        <source>Choose &amp;Picture…</source>
        <translation>B&amp;ild wählen…</translation>
    </message>
    <message>
        <source>Remove Pic&amp;ture</source>
        <translation>Bild en&amp;tfernen</translation>
    </message>
    <message>
        <source>Is an Or&amp;ganization</source>
        <translation>Ist eine Or&amp;ganisation</translation>
    </message>
    <message>
        <source>Contact</source>
        <translation>Kontakt</translation>
    </message>
    <message>
        <source>Add Value</source>
        <translation>Wert hinzufügen</translation>
    </message>
    <message>
        <source>Choose Picture</source>
        <translation>Bild wählen</translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg *.jpeg *.gif)</source>
        <translation>Bilder (*.png *.jpg *.jpeg *.gif)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>Select &amp;All Contacts</source>
        <translation>&amp;Alle Kontakte auswählen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Last Name First</source>
        <translation>&amp;Nachname zuerst</translation>
    </message>
    <message>
        <source>Sort by &amp;Name</source>
        <translation>Nach Na&amp;men sortieren</translation>
    </message>
    <message>
        <source>Sort by &amp;Company</source>
        <translation>Nach &amp;Firma sortieren</translation>
    </message>
    <message>
        <source>In the Order of the &amp;Book</source>
        <translation>In der Reihenfolge des &amp;Buchs</translation>
    </message>
    <message>
        <source>Contacts (*.ovbook *.vcf *.vcard)</source>
        <translation>Kontakte (*.ovbook *.vcf *.vcard)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Data block (*.ovbook)</source>
        <translation>Datenblock (*.ovbook)</translation>
    </message>
    <message>
        <source>vCards (*.vcf)</source>
        <translation>vCards (*.vcf)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Öffnen…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>&amp;Export a Copy…</source>
        <translation>Kopie &amp;exportieren…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>“%1” could not be opened.</source>
        <translation>„%1“ konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Opening “%1”…</source>
        <translation>„%1“ wird geöffnet…</translation>
    </message>
    <message>
        <source>Not everything in “%1” could be imported exactly.</source>
        <translation>Nicht alles in „%1“ ließ sich genau übernehmen.</translation>
    </message>
    <message>
        <source>Open Contacts</source>
        <translation>Kontakte öffnen</translation>
    </message>
    <message>
        <source>The contacts were not saved.</source>
        <translation>Die Kontakte wurden nicht gespeichert.</translation>
    </message>
    <message>
        <source>Save Contacts</source>
        <translation>Kontakte speichern</translation>
    </message>
    <message>
        <source>Export Contacts</source>
        <translation>Kontakte exportieren</translation>
    </message>
    <message>
        <source>The contacts were not exported.</source>
        <translation>Die Kontakte wurden nicht exportiert.</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation>Änderungen an „%1“ speichern?</translation>
    </message>
    <message>
        <source>Otherwise they are lost.</source>
        <translation>Sonst gehen sie verloren.</translation>
    </message>
    <message>
        <source>&amp;Group</source>
        <translation>&amp;Gruppe</translation>
    </message>
    <message>
        <source>&amp;New Group</source>
        <translation>&amp;Neue Gruppe</translation>
    </message>
    <message>
        <source>New &amp;Group in This One</source>
        <translation>Neue &amp;Gruppe in dieser</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>Remove Group or &amp;Tag</source>
        <translation>Gruppe oder Schlagwort &amp;entfernen</translation>
    </message>
    <message>
        <source>Remove &amp;from Group or Tag</source>
        <translation>&amp;Aus Gruppe oder Schlagwort nehmen</translation>
    </message>
    <message>
        <source>&amp;Add Tag…</source>
        <translation>&amp;Schlagwort hinzufügen…</translation>
    </message>
    <message>
        <source>New Group</source>
        <translation>Neue Gruppe</translation>
    </message>
    <message>
        <source>Add Tag</source>
        <translation>Schlagwort hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Tag:</source>
        <translation>&amp;Schlagwort:</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>Nothing was added.</source>
        <translation>Es wurde nichts hinzugefügt.</translation>
    </message>
    <message>
        <source>What was dropped contains no contact.</source>
        <translation>Es ist kein Kontakt darin.</translation>
    </message>
    <message>
        <source>Progress of opening and saving</source>
        <translation>Fortschritt beim Öffnen und Speichern</translation>
    </message>
    <message>
        <source>Saving “%1”…</source>
        <translation>„%1“ wird gespeichert…</translation>
    </message>
    <message>
        <source>The picture “%1” cannot be used.</source>
        <translation>Das Bild „%1“ kann nicht verwendet werden.</translation>
    </message>
    <message>
        <source>Re&amp;fresh from the Server</source>
        <translation>Beim Server nach &amp;Neuem fragen</translation>
    </message>
    <message numerus="yes">
        <source>Others have changed %n entry(s).</source>
        <translation>
            <numerusform>Andere haben %n Eintrag geändert.</numerusform>
            <numerusform>Andere haben %n Einträge geändert.</numerusform>
        </translation>
    </message>
    <message>
        <source>This book has been removed. It is shown as it was.</source>
        <translation>Dieses Adressbuch wurde entfernt. Es wird gezeigt, wie es war.</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Speichern unter…</translation>
    </message>
    <message numerus="yes">
        <source>%n entry(s) were changed here and elsewhere.</source>
        <translation>
            <numerusform>%n Eintrag wurde hier und anderswo geändert.</numerusform>
            <numerusform>%n Einträge wurden hier und anderswo geändert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Decide…</source>
        <translation>Entscheiden…</translation>
    </message>
    <message>
        <source>Others have changed this book.</source>
        <translation>Andere haben dieses Adressbuch geändert.</translation>
    </message>
    <message>
        <source>Show Changes</source>
        <translation>Änderungen zeigen</translation>
    </message>
    <message>
        <source>The server asks for a password. What you save is sent after you have signed in.</source>
        <translation>Der Server verlangt ein Passwort. Was Sie speichern, wird gesendet, sobald er eines hat.</translation>
    </message>
    <message>
        <source>Sign In…</source>
        <translation>Anmelden…</translation>
    </message>
    <message>
        <source>The server cannot be reached. The book is shown as it was last seen.</source>
        <translation>Der Server ist nicht erreichbar. Das Adressbuch wird gezeigt, wie es zuletzt war.</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Some of what you saved has not reached the server yet.</source>
        <translation>Etwas, das Sie gespeichert haben, ist noch nicht beim Server.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No program on this computer can open it.</source>
        <translation>Kein Programm dieses Rechners tut das.</translation>
    </message>
</context>
<context>
    <name>ovcontacts::PasswordDialog</name>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>&amp;User:</source>
        <translation>&amp;Benutzer:</translation>
    </message>
    <message>
        <source>&amp;Password:</source>
        <translation>&amp;Passwort:</translation>
    </message>
    <message>
        <source>The server of “%1” rejected the password. Please enter it again.</source>
        <translation>Der Server von „%1“ hat das Passwort abgelehnt. Welches ist richtig?</translation>
    </message>
    <message>
        <source>The server of “%1” asks for a password.</source>
        <translation>Der Server von „%1“ verlangt ein Passwort.</translation>
    </message>
</context>
<context>
    <name>ovcontacts::PersonsPane</name>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search contacts</source>
        <translation>Kontakte durchsuchen</translation>
    </message>
    <message>
        <source>Contacts</source>
        <translation>Kontakte</translation>
    </message>
    <message numerus="yes">
        <source>%n contact(s)</source>
        <translation>
            <numerusform>%n Kontakt</numerusform>
            <numerusform>%n Kontakte</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ovcontacts::SheetHeader</name>
    <message>
        <source>(no name)</source>
        <translation>(ohne Namen)</translation>
    </message>
</context>
<context>
    <name>ovcontacts::SheetPane</name>
    <message>
        <source>Details of the contact</source>
        <translation>Was über den Kontakt bekannt ist</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
</context>
<context>
    <name>ovcontacts::ValueDialog</name>
    <message>
        <source>This is the &amp;main one</source>
        <translation>Das ist der &amp;wichtigste Eintrag</translation>
    </message>
    <message>
        <source>L&amp;abel:</source>
        <translation>&amp;Bezeichnung:</translation>
    </message>
</context>
<context>
    <name>ovcontacts::ValueEditor</name>
    <message>
        <source>&amp;Text:</source>
        <translation>&amp;Text:</translation>
    </message>
    <message>
        <source>The &amp;year is known</source>
        <translation>Das &amp;Jahr ist bekannt</translation>
    </message>
    <message>
        <source>&amp;Date:</source>
        <translation>&amp;Datum:</translation>
    </message>
    <message>
        <source>&amp;First name:</source>
        <translation>&amp;Vorname:</translation>
    </message>
    <message>
        <source>&amp;Middle name:</source>
        <translation>&amp;Zweiter Vorname:</translation>
    </message>
    <message>
        <source>&amp;Last name:</source>
        <translation>&amp;Nachname:</translation>
    </message>
    <message>
        <source>&amp;User name:</source>
        <translation>&amp;Benutzername:</translation>
    </message>
    <message>
        <source>&amp;Service:</source>
        <translation>&amp;Dienst:</translation>
    </message>
    <message>
        <source>&amp;Number:</source>
        <translation>&amp;Nummer:</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse:</translation>
    </message>
</context>
</TS>
