<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>CustomPageSizeForm</name>
    <message>
        <source>Width</source>
        <extracomment>Names the field of a page&apos;s width, for screen readers.</extracomment>
        <translation>العرض</translation>
    </message>
    <message>
        <source>Height</source>
        <extracomment>Names the field of a page&apos;s height, for screen readers.</extracomment>
        <translation>الارتفاع</translation>
    </message>
    <message>
        <source>Units:</source>
        <extracomment>Units of length, followed by the choice: pt, mm, cm, in.</extracomment>
        <translation>الوحدة:</translation>
    </message>
</context>
<context>
    <name>CustomPageSizeView</name>
    <message>
        <source>pt</source>
        <extracomment>Unit of the size of a page: points, 1/72 inch.</extracomment>
        <translation>نقطة</translation>
    </message>
    <message>
        <source>mm</source>
        <extracomment>Unit of the size of a page: millimeters.</extracomment>
        <translation>مم</translation>
    </message>
    <message>
        <source>cm</source>
        <extracomment>Unit of the size of a page: centimeters.</extracomment>
        <translation>سم</translation>
    </message>
    <message>
        <source>in</source>
        <extracomment>Unit of the size of a page: inches.</extracomment>
        <translation>بوصة</translation>
    </message>
    <message>
        <source>Width [%1-%2] %3:</source>
        <extracomment>The width of a page: the smallest, the greatest, the unit.</extracomment>
        <translation>العرض [من %1 إلى %2] %3:</translation>
    </message>
    <message>
        <source>Height [%1-%2] %3:</source>
        <extracomment>The height of a page: the smallest, the greatest, the unit.</extracomment>
        <translation>الارتفاع [من %1 إلى %2] %3:</translation>
    </message>
</context>
<context>
    <name>PPDCustomForm</name>
    <message>
        <source>Custom Value</source>
        <extracomment>Box: fields for a value of one&apos;s own of a driver option, as of a paper size.</extracomment>
        <translation>قيمة مخصصة</translation>
    </message>
</context>
<context>
    <name>PPDNumericView</name>
    <message>
        <source>Value:</source>
        <extracomment>The value of a driver option that is a number.</extracomment>
        <translation>القيمة:</translation>
    </message>
    <message>
        <source>Value</source>
        <extracomment>Names the field and the slider of a driver option that is a number, for screen readers.</extracomment>
        <translation>القيمة</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <extracomment>The smallest and the greatest number that may be chosen.</extracomment>
        <translation>من %1 إلى %2</translation>
    </message>
</context>
<context>
    <name>PPDOptionView</name>
    <message>
        <source>No option selected</source>
        <extracomment>In place of the editor of a driver option.</extracomment>
        <translation>لم يُحدَّد أي خيار</translation>
    </message>
</context>
<context>
    <name>PPDTreeView</name>
    <message>
        <source>You selected options that are in conflict. Try to resolve the
problem before continuing:
</source>
        <extracomment>Followed by a list of the options.</extracomment>
        <translation>لقد حدّدت خيارات متعارضة. حاول حل
المشكلة قبل المتابعة:
</translation>
    </message>
    <message>
        <source>, in conflict</source>
        <extracomment>Follows the name of a driver option, for screen readers: &quot;Duplex: &lt;On&gt;, in conflict&quot;.</extracomment>
        <translation>، متعارض</translation>
    </message>
    <message>
        <source>Undefined</source>
        <extracomment>The value of a driver option of which nothing is chosen: &quot;Duplex: &lt;Undefined&gt;&quot;.</extracomment>
        <translation>غير محدد</translation>
    </message>
    <message>
        <source>Driver configuration</source>
        <extracomment>Title of a message about driver options that exclude each other.</extracomment>
        <translation>إعداد المشغّل</translation>
    </message>
</context>
<context>
    <name>Param</name>
    <message>
        <source>From %1 to %2</source>
        <extracomment>The smallest and the greatest number that may be typed.</extracomment>
        <translation>من %1 إلى %2</translation>
    </message>
    <message>
        <source> pt</source>
        <extracomment>Unit behind a number: points, 1/72 inch. Begins with a blank.</extracomment>
        <translation> نقطة</translation>
    </message>
    <message>
        <source>%1 to %2 digits</source>
        <translation>عدد الأرقام: من %1 إلى %2</translation>
    </message>
    <message>
        <source>At most %1 digits</source>
        <translation>عدد الأرقام: %1 على الأكثر</translation>
    </message>
    <message>
        <source>%1 to %2 characters without blanks</source>
        <translation>عدد المحارف: من %1 إلى %2، بلا مسافات</translation>
    </message>
    <message>
        <source>At most %1 characters without blanks</source>
        <translation>عدد المحارف: %1 على الأكثر، بلا مسافات</translation>
    </message>
    <message>
        <source>%1 to %2 characters</source>
        <translation>عدد المحارف: من %1 إلى %2</translation>
    </message>
    <message>
        <source>At most %1 characters</source>
        <translation>عدد المحارف: %1 على الأكثر</translation>
    </message>
</context>
</TS>
