<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="cs" sourcelanguage="en">
<context>
    <name>HelpLauncher</name>
    <message>
        <source>Help</source>
        <extracomment>Title of a message that says that the help could not be shown.</extracomment>
        <translation>Nápověda</translation>
    </message>
    <message>
        <source>The help page &quot;%1&quot; could not be opened.</source>
        <translation>Stránku nápovědy „%1“ se nepodařilo otevřít.</translation>
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
        <translation>Výběr souborů k tisku</translation>
    </message>
</context>
</TS>
