<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CUPSManager</name>
    <message>
        <source>idle</source>
        <extracomment>State of a printer: it has nothing to print.</extracomment>
        <translation>空闲</translation>
    </message>
    <message>
        <source>processing</source>
        <extracomment>State of a printer: it prints.</extracomment>
        <translation>正在处理</translation>
    </message>
    <message>
        <source>stopped</source>
        <extracomment>State of a printer: it was stopped and prints nothing.</extracomment>
        <translation>已停止</translation>
    </message>
    <message>
        <source>unknown</source>
        <extracomment>State of a printer.</extracomment>
        <translation>未知</translation>
    </message>
    <message>
        <source>accepting jobs</source>
        <extracomment>Follows the state of a printer: &quot;idle, accepting jobs&quot;.</extracomment>
        <translation>接受作业</translation>
    </message>
    <message>
        <source>rejecting jobs</source>
        <extracomment>Follows the state of a printer: &quot;idle, rejecting jobs&quot;.</extracomment>
        <translation>拒绝作业</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <extracomment>State of a printer, and whether it accepts jobs: &quot;idle, accepting jobs&quot;.</extracomment>
        <translation>%1，%2</translation>
    </message>
</context>
<context>
    <name>IPPRequest</name>
    <message>
        <source>Authorization</source>
        <extracomment>Title of the window that asks for the password of the system&apos;s administrator.</extracomment>
        <translation>身份验证</translation>
    </message>
    <message>
        <source>Please, enter the root password:</source>
        <translation>请输入 root 密码：</translation>
    </message>
</context>
</TS>
