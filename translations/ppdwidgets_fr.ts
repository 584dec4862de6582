<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>CustomPageSizeForm</name>
    <message>
        <source>Width</source>
        <extracomment>Names the field of a page&apos;s width, for screen readers.</extracomment>
        <translation>Largeur</translation>
    </message>
    <message>
        <source>Height</source>
        <extracomment>Names the field of a page&apos;s height, for screen readers.</extracomment>
        <translation>Hauteur</translation>
    </message>
    <message>
        <source>Units:</source>
        <extracomment>Units of length, followed by the choice: pt, mm, cm, in.</extracomment>
        <translation>Unité&#xa0;:</translation>
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
        <translation>po</translation>
    </message>
    <message>
        <source>Width [%1-%2] %3:</source>
        <extracomment>The width of a page: the smallest, the greatest, the unit.</extracomment>
        <translation>Largeur [%1-%2] %3&#xa0;:</translation>
    </message>
    <message>
        <source>Height [%1-%2] %3:</source>
        <extracomment>The height of a page: the smallest, the greatest, the unit.</extracomment>
        <translation>Hauteur [%1-%2] %3&#xa0;:</translation>
    </message>
</context>
<context>
    <name>PPDCustomForm</name>
    <message>
        <source>Custom Value</source>
        <extracomment>Box: fields for a value of one&apos;s own of a driver option, as of a paper size.</extracomment>
        <translation>Valeur personnalisée</translation>
    </message>
</context>
<context>
    <name>PPDNumericView</name>
    <message>
        <source>Value:</source>
        <extracomment>The value of a driver option that is a number.</extracomment>
        <translation>Valeur&#xa0;:</translation>
    </message>
    <message>
        <source>Value</source>
        <extracomment>Names the field and the slider of a driver option that is a number, for screen readers.</extracomment>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <extracomment>The smallest and the greatest number that may be chosen.</extracomment>
        <translation>De %1 à %2</translation>
    </message>
</context>
<context>
    <name>PPDOptionView</name>
    <message>
        <source>No option selected</source>
        <extracomment>In place of the editor of a driver option.</extracomment>
        <translation>Aucune option sélectionnée</translation>
    </message>
</context>
<context>
    <name>PPDTreeView</name>
    <message>
        <source>You selected options that are in conflict. Try to resolve the
problem before continuing:
</source>
        <extracomment>Followed by a list of the options.</extracomment>
        <translation>Vous avez sélectionné des options en conflit.
Résolvez ce conflit avant de continuer&#xa0;:
</translation>
    </message>
    <message>
        <source>, in conflict</source>
        <extracomment>Follows the name of a driver option, for screen readers: &quot;Duplex: &lt;On&gt;, in conflict&quot;.</extracomment>
        <translation>, en conflit</translation>
    </message>
    <message>
        <source>Undefined</source>
        <extracomment>The value of a driver option of which nothing is chosen: &quot;Duplex: &lt;Undefined&gt;&quot;.</extracomment>
        <translation>Non défini</translation>
    </message>
    <message>
        <source>Driver configuration</source>
        <extracomment>Title of a message about driver options that exclude each other.</extracomment>
        <translation>Configuration du pilote</translation>
    </message>
</context>
<context>
    <name>Param</name>
    <message>
        <source>From %1 to %2</source>
        <extracomment>The smallest and the greatest number that may be typed.</extracomment>
        <translation>De %1 à %2</translation>
    </message>
    <message>
        <source> pt</source>
        <extracomment>Unit behind a number: points, 1/72 inch. Begins with a blank.</extracomment>
        <translation> pt</translation>
    </message>
    <message>
        <source>%1 to %2 digits</source>
        <translation>Nombre de chiffres&#xa0;: de %1 à %2</translation>
    </message>
    <message>
        <source>At most %1 digits</source>
        <translation>Nombre de chiffres&#xa0;: %1 au maximum</translation>
    </message>
    <message>
        <source>%1 to %2 characters without blanks</source>
        <translation>Nombre de caractères, sans espaces&#xa0;: de %1 à %2</translation>
    </message>
    <message>
        <source>At most %1 characters without blanks</source>
        <translation>Nombre de caractères, sans espaces&#xa0;: %1 au maximum</translation>
    </message>
    <message>
        <source>%1 to %2 characters</source>
        <translation>Nombre de caractères&#xa0;: de %1 à %2</translation>
    </message>
    <message>
        <source>At most %1 characters</source>
        <translation>Nombre de caractères&#xa0;: %1 au maximum</translation>
    </message>
</context>
</TS>
