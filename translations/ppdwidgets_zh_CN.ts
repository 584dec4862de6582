<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CustomPageSizeForm</name>
    <message>
        <source>Width</source>
        <extracomment>Names the field of a page&apos;s width, for screen readers.</extracomment>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Height</source>
        <extracomment>Names the field of a page&apos;s height, for screen readers.</extracomment>
        <translation>高度</translation>
    </message>
    <message>
        <source>Units:</source>
        <extracomment>Units of length, followed by the choice: pt, mm, cm, in.</extracomment>
        <translation>单位：</translation>
    </message>
</context>
<context>
    <name>CustomPageSizeView</name>
    <message>
        <source>pt</source>
        <extracomment>Unit of the size of a page: points, 1/72 inch.</extracomment>
        <translation>pt</translation>
    </message>
    <message>
        <source>mm</source>
        <extracomment>Unit of the size of a page: millimeters.</extracomment>
        <translation>mm</translation>
    </message>
    <message>
        <source>cm</source>
        <extracomment>Unit of the size of a page: centimeters.</extracomment>
        <translation>cm</translation>
    </message>
    <message>
        <source>in</source>
        <extracomment>Unit of the size of a page: inches.</extracomment>
        <translation>in</translation>
    </message>
    <message>
        <source>Width [%1-%2] %3:</source>
        <extracomment>The width of a page: the smallest, the greatest, the unit.</extracomment>
        <translation>宽度 [%1-%2] %3：</translation>
    </message>
    <message>
        <source>Height [%1-%2] %3:</source>
        <extracomment>The height of a page: the smallest, the greatest, the unit.</extracomment>
        <translation>高度 [%1-%2] %3：</translation>
    </message>
</context>
<context>
    <name>PPDCustomForm</name>
    <message>
        <source>Custom Value</source>
        <extracomment>Box: fields for a value of one&apos;s own of a driver option, as of a paper size.</extracomment>
        <translation>自定义值</translation>
    </message>
</context>
<context>
    <name>PPDNumericView</name>
    <message>
        <source>Value:</source>
        <extracomment>The value of a driver option that is a number.</extracomment>
        <translation>值：</translation>
    </message>
    <message>
        <source>Value</source>
        <extracomment>Names the field and the slider of a driver option that is a number, for screen readers.</extracomment>
        <translation>值</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <extracomment>The smallest and the greatest number that may be chosen.</extracomment>
        <translation>从 %1 到 %2</translation>
    </message>
</context>
<context>
    <name>PPDOptionView</name>
    <message>
        <source>No option selected</source>
        <extracomment>In place of the editor of a driver option.</extracomment>
        <translation>未选择选项</translation>
    </message>
</context>
<context>
    <name>PPDTreeView</name>
    <message>
        <source>You selected options that are in conflict. Try to resolve the
problem before continuing:
</source>
        <extracomment>Followed by a list of the options.</extracomment>
        <translation>您选择的选项存在冲突。
请先解决问题，然后再继续：
</translation>
    </message>
    <message>
        <source>, in conflict</source>
        <extracomment>Follows the name of a driver option, for screen readers: &quot;Duplex: &lt;On&gt;, in conflict&quot;.</extracomment>
        <translation>，存在冲突</translation>
    </message>
    <message>
        <source>Undefined</source>
        <extracomment>The value of a driver option of which nothing is chosen: &quot;Duplex: &lt;Undefined&gt;&quot;.</extracomment>
        <translation>未设置</translation>
    </message>
    <message>
        <source>Driver configuration</source>
        <extracomment>Title of a message about driver options that exclude each other.</extracomment>
        <translation>驱动程序设置</translation>
    </message>
</context>
<context>
    <name>Param</name>
    <message>
        <source>From %1 to %2</source>
        <extracomment>The smallest and the greatest number that may be typed.</extracomment>
        <translation>从 %1 到 %2</translation>
    </message>
    <message>
        <source> pt</source>
        <extracomment>Unit behind a number: points, 1/72 inch. Begins with a blank.</extracomment>
        <translation> pt</translation>
    </message>
    <message>
        <source>%1 to %2 digits</source>
        <translation>%1 到 %2 位数字</translation>
    </message>
    <message>
        <source>At most %1 digits</source>
        <translation>最多 %1 位数字</translation>
    </message>
    <message>
        <source>%1 to %2 characters without blanks</source>
        <translation>%1 到 %2 个字符（不含空格）</translation>
    </message>
    <message>
        <source>At most %1 characters without blanks</source>
        <translation>最多 %1 个字符（不含空格）</translation>
    </message>
    <message>
        <source>%1 to %2 characters</source>
        <translation>%1 到 %2 个字符</translation>
    </message>
    <message>
        <source>At most %1 characters</source>
        <translation>最多 %1 个字符</translation>
    </message>
</context>
</TS>
