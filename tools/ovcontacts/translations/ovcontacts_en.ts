<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB">
<context>
    <name>ovcontacts::MainWindow</name>
    <message numerus="yes">
        <source>Others have changed %n entry(s).</source>
        <translation>
            <numerusform>Others have changed %n entry.</numerusform>
            <numerusform>Others have changed %n entries.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n entry(s) were changed here and elsewhere.</source>
        <translation>
            <numerusform>%n entry was changed here and elsewhere.</numerusform>
            <numerusform>%n entries were changed here and elsewhere.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ovcontacts::PersonsPane</name>
    <message numerus="yes">
        <source>%n contact(s)</source>
        <translation>
            <numerusform>%n contact</numerusform>
            <numerusform>%n contacts</numerusform>
        </translation>
    </message>
</context>
</TS>
