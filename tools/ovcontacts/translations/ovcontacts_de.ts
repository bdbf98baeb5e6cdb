<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Application</name>
    <message>
        <source>Contacts</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Opening</name>
    <message>
        <source>It is no ordinary file, and has no end after 512 MiB.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The data block is damaged: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The data block holds something else than contacts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file holds neither a data block nor vCards.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Words</name>
    <message>
        <source>(no name)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Thumbnail</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tags</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Email</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Prefix</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Suffix</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maiden Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nickname</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Company</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Department</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Job Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Birthday</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First Name Phonetic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last Name Phonetic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>URL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Instant Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Related Names</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Is Organization</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Home</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Work</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mobile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Work fax</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Home fax</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pager</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anniversary</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spouse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Child</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Friend</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Assistant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Home page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Street</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>City</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Country</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Province</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Postal Code</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ZIP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Country or Area</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::AccountEditor</name>
    <message>
        <source>&amp;User name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Service:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::AddressEditor</name>
    <message>
        <source>(not known)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Layout of:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::DateEditor</name>
    <message>
        <source>The &amp;year is known</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Date:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::Document</name>
    <message>
        <source>New Contacts</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::GroupsPane</name>
    <message>
        <source>Groups and tags</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::Loader</name>
    <message>
        <source>There is not enough memory.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::MainWindow</name>
    <message>
        <source>&amp;Contact</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New Contact</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Remove Contacts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit Value…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;move Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ma&amp;ke It the Main One</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open It</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose &amp;Picture…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Pic&amp;ture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Is an Or&amp;ganization</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contact</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose Picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg *.jpeg *.gif)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The picture cannot be used.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It cannot be read, or is no picture.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;All Contacts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Last Name First</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sort by &amp;Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sort by &amp;Company</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In the Order of the &amp;Book</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contacts (*.ovbook *.vcf *.vcard)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data block (*.ovbook)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>vCards (*.vcf)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open &amp;Live Book</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Export a Copy…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Progress of opening</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” could not be opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opening “%1”…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not everything in “%1” could be taken over exactly.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Contacts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The contacts were not saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Contacts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Contacts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The contacts were not exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Otherwise they are lost.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New &amp;Group in This One</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Group or &amp;Tag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove &amp;from Group or Tag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add Tag…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Tag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tag:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing was added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no contact in what was dropped.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::NameEditor</name>
    <message>
        <source>&amp;First name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Middle name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Last name:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::NoteEditor</name>
    <message>
        <source>&amp;Text:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::PersonsPane</name>
    <message>
        <source>Search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search contacts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contacts</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n contact(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ovcontacts::SheetHeader</name>
    <message>
        <source>(no name)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::SheetPane</name>
    <message>
        <source>What is known of the contact</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::ValueDialog</name>
    <message>
        <source>This is the &amp;main one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>L&amp;abel:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ovcontacts::ValueEditor</name>
    <message>
        <source>&amp;Number:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Text:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
