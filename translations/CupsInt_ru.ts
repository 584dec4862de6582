<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru" sourcelanguage="en">
<context>
    <name>CUPSManager</name>
    <message>
        <source>idle</source>
        <extracomment>State of a printer: it has nothing to print.</extracomment>
        <translation>свободен</translation>
    </message>
    <message>
        <source>processing</source>
        <extracomment>State of a printer: it prints.</extracomment>
        <translation>печатает</translation>
    </message>
    <message>
        <source>stopped</source>
        <extracomment>State of a printer: it was stopped and prints nothing.</extracomment>
        <translation>остановлен</translation>
    </message>
    <message>
        <source>unknown</source>
        <extracomment>State of a printer.</extracomment>
        <translation>неизвестен</translation>
    </message>
    <message>
        <source>accepting jobs</source>
        <extracomment>Follows the state of a printer: &quot;idle, accepting jobs&quot;.</extracomment>
        <translation>принимает задания</translation>
    </message>
    <message>
        <source>rejecting jobs</source>
        <extracomment>Follows the state of a printer: &quot;idle, rejecting jobs&quot;.</extracomment>
        <translation>не принимает задания</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <extracomment>State of a printer, and whether it accepts jobs: &quot;idle, accepting jobs&quot;.</extracomment>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>IPPRequest</name>
    <message>
        <source>Authorization</source>
        <extracomment>Title of the window that asks for the password of the system&apos;s administrator.</extracomment>
        <translation>Авторизация</translation>
    </message>
    <message>
        <source>Please, enter the root password:</source>
        <translation>Введите пароль пользователя root:</translation>
    </message>
</context>
</TS>
