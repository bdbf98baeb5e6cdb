<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB">
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
