<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>HelpLauncher</name>
    <message>
        <source>Help</source>
        <extracomment>Title of a message that says that the help could not be shown.</extracomment>
        <translation>Aide</translation>
    </message>
    <message>
        <source>The help page &quot;%1&quot; could not be opened.</source>
        <translation>La page d&apos;aide «&#xa0;%1&#xa0;» n&apos;a pas pu être ouverte.</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <extracomment>Not shown. &quot;RTL&quot; if the language is written from right to left, else &quot;LTR&quot;.</extracomment>
        <translation>LTR</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Select file(s) to print</source>
        <extracomment>Title of the window in which files are chosen.</extracomment>
        <translation>Sélectionner les fichiers à imprimer</translation>
    </message>
</context>
</TS>
