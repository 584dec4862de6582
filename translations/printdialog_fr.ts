<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>LengthUnits</name>
    <message>
        <source>points</source>
        <extracomment>Unit of the margins: 1/72 inch.</extracomment>
        <translation>points</translation>
    </message>
    <message>
        <source>1/10 inches</source>
        <extracomment>Unit of the margins: tenths of an inch.</extracomment>
        <translation>1/10 de pouce</translation>
    </message>
    <message>
        <source>mm</source>
        <extracomment>Unit of the margins: millimeters.</extracomment>
        <translation>mm</translation>
    </message>
</context>
<context>
    <name>OptionChanges</name>
    <message>
        <source>%1 (removed)</source>
        <extracomment>One of the changes that are listed: the option %1 is no longer set.</extracomment>
        <translation>%1 (supprimée)</translation>
    </message>
</context>
<context>
    <name>PrintDialog</name>
    <message>
        <source>This version has no properties dialog.</source>
        <translation>Cette version n&apos;a pas de fenêtre de propriétés.</translation>
    </message>
    <message>
        <source>Error!</source>
        <extracomment>Title of a message: something could not be done.</extracomment>
        <translation>Erreur&#xa0;!</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be made the default.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>«&#xa0;%1&#xa0;» n&apos;a pas pu être définie comme imprimante par défaut.</translation>
    </message>
    <message>
        <source>Warning!</source>
        <extracomment>Title of a message: what is asked for cannot be done now.</extracomment>
        <translation>Attention&#xa0;!</translation>
    </message>
    <message>
        <source>You can&apos;t print anything while printer is stopped. Please, start the selected printer.</source>
        <translation>Impossible d&apos;imprimer tant que l&apos;imprimante est arrêtée. Veuillez démarrer l&apos;imprimante sélectionnée.</translation>
    </message>
    <message>
        <source>Invalid page ranges &quot;%1&quot;
Error at position %1: invalid range value &quot;%1&quot;</source>
        <extracomment>Number the placeholders in a translation: %1 is all that was typed, %2 the position of the error in it, %3 what stands there.</extracomment>
        <translation>Plages de pages non valables&#xa0;: «&#xa0;%1&#xa0;»
Erreur à la position %2&#xa0;: plage non valable «&#xa0;%3&#xa0;»</translation>
    </message>
</context>
<context>
    <name>PrintDialogBase</name>
    <message>
        <source>LPR GUI</source>
        <extracomment>Title of the window: the graphical interface of the command lpr. Keep the name lpr.</extracomment>
        <translation>LPR GUI</translation>
    </message>
    <message>
        <source>Printer</source>
        <extracomment>The box around the choice of the printer, and that choice for screen readers.</extracomment>
        <translation>Imprimante</translation>
    </message>
    <message>
        <source>The printer or class of printers that the job is sent to</source>
        <translation>L&apos;imprimante ou la classe d&apos;imprimantes à laquelle la tâche est envoyée</translation>
    </message>
    <message>
        <source>Set as User Default</source>
        <extracomment>Button, with little room: makes the chosen printer the default of this user (not of the whole system).</extracomment>
        <translation>Définir par défaut</translation>
    </message>
    <message>
        <source>Makes this printer the one that you print to when you choose none</source>
        <translation>Fait de cette imprimante celle que vous utilisez quand vous n&apos;en choisissez aucune</translation>
    </message>
    <message>
        <source>Properties...</source>
        <extracomment>Button: opens the window with all options of the printer.</extracomment>
        <translation>Propriétés...</translation>
    </message>
    <message>
        <source>Shows all options of this printer</source>
        <translation>Affiche toutes les options de cette imprimante</translation>
    </message>
    <message>
        <source>Picture of the printer</source>
        <translation>Image de l&apos;imprimante</translation>
    </message>
    <message>
        <source>Start</source>
        <extracomment>Button, with little room: a verb. Puts the stopped printer into operation again.</extracomment>
        <translation>Démarrer</translation>
    </message>
    <message>
        <source>Starts this printer when it is stopped or rejects jobs</source>
        <translation>Démarre cette imprimante si elle est arrêtée ou refuse les tâches</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>Emplacement&#xa0;:</translation>
    </message>
    <message>
        <source>Location of the printer</source>
        <translation>Emplacement de l&apos;imprimante</translation>
    </message>
    <message>
        <source>unknown</source>
        <extracomment>Where a printer stands, what state it is in or how it is described: not known.</extracomment>
        <translation>inconnu</translation>
    </message>
    <message>
        <source>Status:</source>
        <extracomment>Followed by the state of the printer, for instance: idle, accepting jobs.</extracomment>
        <translation>État&#xa0;:</translation>
    </message>
    <message>
        <source>Status of the printer</source>
        <translation>État de l&apos;imprimante</translation>
    </message>
    <message>
        <source>Description:</source>
        <extracomment>Followed by the description of the printer.</extracomment>
        <translation>Description&#xa0;:</translation>
    </message>
    <message>
        <source>Description of the printer</source>
        <translation>Description de l&apos;imprimante</translation>
    </message>
    <message>
        <source>Page Selection</source>
        <extracomment>The box around the choice of the pages to print.</extracomment>
        <translation>Sélection des pages</translation>
    </message>
    <message>
        <source>All pages</source>
        <translation>Toutes les pages</translation>
    </message>
    <message>
        <source>Even pages</source>
        <translation>Pages paires</translation>
    </message>
    <message>
        <source>Odd pages</source>
        <translation>Pages impaires</translation>
    </message>
    <message>
        <source>Some pages:</source>
        <extracomment>Followed by a field for page numbers.</extracomment>
        <translation>Certaines pages&#xa0;:</translation>
    </message>
    <message>
        <source>Pages to print</source>
        <extracomment>Names the field for page numbers, for screen readers.</extracomment>
        <translation>Pages à imprimer</translation>
    </message>
    <message>
        <source>Page numbers and groups of pages, separated by commas</source>
        <translation>Numéros et plages de pages, séparés par des virgules</translation>
    </message>
    <message>
        <source>Enter page numbers and/or groups of pages to print separated by commas (1,2-5,10-12,17).</source>
        <extracomment>The example is what is typed: digits 0 to 9, hyphens and commas in every language.</extracomment>
        <translation>Saisissez les numéros et/ou plages de pages à imprimer, séparés par des virgules (1,2-5,10-12,17).</translation>
    </message>
    <message>
        <source>Copies</source>
        <extracomment>The box around the number of copies and their order; also names the field of the number.</extracomment>
        <translation>Copies</translation>
    </message>
    <message>
        <source>Copies [1~100]:</source>
        <extracomment>Number of copies, from 1 to 100.</extracomment>
        <translation>Copies [1~100]&#xa0;:</translation>
    </message>
    <message>
        <source>Collate copies</source>
        <extracomment>Option: print the copies one after the other (1,2,3,1,2,3), not page by page (1,1,2,2,3,3).</extracomment>
        <translation>Assembler les copies</translation>
    </message>
    <message>
        <source>Reverse All Pages (3,2,1)</source>
        <extracomment>Option: print the last page first.</extracomment>
        <translation>Ordre inverse (3,2,1)</translation>
    </message>
    <message>
        <source>Order of the printed pages</source>
        <extracomment>Describes a picture that shows the order of the pages, for screen readers.</extracomment>
        <translation>Ordre des pages imprimées</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Ai&amp;de</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;nnuler</translation>
    </message>
</context>
<context>
    <name>PrinterPropertiesDialog</name>
    <message>
        <source>LPR GUI: Options Conflict</source>
        <extracomment>Title of a message. Keep the name lpr.</extracomment>
        <translation>LPR GUI&#xa0;: conflit d&apos;options</translation>
    </message>
    <message>
        <source>Some options selected are in conflict.
Resolve those conflicts before continuing.
Hint: click Advanced on Device tab.
Conflicting options will be shown in red color.
</source>
        <extracomment>&quot;Advanced&quot; is the tab of that name.</extracomment>
        <translation>Certaines options sélectionnées sont en conflit.
Résolvez ces conflits avant de continuer.
Astuce&#xa0;: ouvrez l&apos;onglet «&#xa0;Avancé&#xa0;».
Les options en conflit y sont affichées en rouge.
</translation>
    </message>
    <message>
        <source>Options Not Saved</source>
        <translation>Options non enregistrées</translation>
    </message>
    <message>
        <source>The options of &quot;%1&quot; could not be saved: the print server does not answer, or the file of the saved options cannot be written. The changes are listed below; they will not apply to what you print.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>Les options de «&#xa0;%1&#xa0;» n&apos;ont pas pu être enregistrées&#xa0;: le serveur d&apos;impression ne répond pas, ou le fichier des options enregistrées ne peut pas être écrit. Les modifications sont listées ci-dessous&#xa0;; elles ne s&apos;appliqueront pas à vos impressions.</translation>
    </message>
    <message>
        <source>Unknown Printer</source>
        <translation>Imprimante inconnue</translation>
    </message>
    <message>
        <source>The print server no longer knows &quot;%1&quot;. Its options were saved on this computer for the case that it comes back.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>Le serveur d&apos;impression ne connaît plus l&apos;imprimante «&#xa0;%1&#xa0;». Ses options ont été enregistrées sur cet ordinateur au cas où elle redeviendrait disponible.</translation>
    </message>
</context>
<context>
    <name>PrinterPropertiesDialogBase</name>
    <message>
        <source>&apos;%s&apos; Properties</source>
        <extracomment>Title of the window: the properties of the printer %s.</extracomment>
        <translation>Propriétés de «&#xa0;%s&#xa0;»</translation>
    </message>
    <message>
        <source>General</source>
        <extracomment>Tab: paper, orientation, duplex and the like.</extracomment>
        <translation>Général</translation>
    </message>
    <message>
        <source>Paper Options</source>
        <extracomment>Box: size and type of the paper.</extracomment>
        <translation>Options de papier</translation>
    </message>
    <message>
        <source>Paper Size:</source>
        <translation>Taille du papier&#xa0;:</translation>
    </message>
    <message>
        <source>Paper Type:</source>
        <extracomment>What the paper is made of: plain, glossy, transparency ...</extracomment>
        <translation>Type de papier&#xa0;:</translation>
    </message>
    <message>
        <source>Paper Orientation</source>
        <translation>Orientation</translation>
    </message>
    <message>
        <source>Portrait</source>
        <extracomment>Orientation of the page: upright. (Not a picture of a person.)</extracomment>
        <translation>Portrait</translation>
    </message>
    <message>
        <source>Landscape</source>
        <extracomment>Orientation of the page: wide. (Not a picture of scenery.)</extracomment>
        <translation>Paysage</translation>
    </message>
    <message>
        <source>Reverse</source>
        <extracomment>Option of the orientation: the page turned upside down, by 180 degrees.</extracomment>
        <translation>Pivoter de 180°</translation>
    </message>
    <message>
        <source>Orientation of the page</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Orientation de la page</translation>
    </message>
    <message>
        <source>Double-Sided Printing</source>
        <translation>Impression recto-verso</translation>
    </message>
    <message>
        <source>Off</source>
        <extracomment>Double-sided printing is off: printed on one side only.</extracomment>
        <translation>Désactivée</translation>
    </message>
    <message>
        <source>Long Edge [Book]</source>
        <extracomment>Double-sided, pages turned along the long edge of the sheet as in a book.</extracomment>
        <translation>Bord long [livre]</translation>
    </message>
    <message>
        <source>Short Edge [Tablet]</source>
        <extracomment>Double-sided, pages turned along the short edge of the sheet as on a notepad.</extracomment>
        <translation>Bord court [bloc]</translation>
    </message>
    <message>
        <source>How both sides of a sheet are printed</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Façon dont les deux faces d&apos;une feuille sont imprimées</translation>
    </message>
    <message>
        <source>Pages per Side [N-Up]</source>
        <extracomment>How many pages are put, smaller, on one side of a sheet.</extracomment>
        <translation>Pages par face</translation>
    </message>
    <message>
        <source>Normal (1-Up)</source>
        <extracomment>One page on each side of a sheet.</extracomment>
        <translation>Normal (1 page)</translation>
    </message>
    <message>
        <source>2-Up</source>
        <extracomment>Two pages on each side of a sheet.</extracomment>
        <translation>2 pages</translation>
    </message>
    <message>
        <source>4-Up</source>
        <extracomment>Four pages on each side of a sheet.</extracomment>
        <translation>4 pages</translation>
    </message>
    <message>
        <source>Pages on one side of a sheet</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Pages sur une face d&apos;une feuille</translation>
    </message>
    <message>
        <source>Banners</source>
        <extracomment>Box: cover sheets that say whose job it is, before and after the job.</extracomment>
        <translation>Pages de garde</translation>
    </message>
    <message>
        <source>Start:</source>
        <extracomment>A noun: the cover sheet before the job.</extracomment>
        <translation>Début&#xa0;:</translation>
    </message>
    <message>
        <source>Banner before the job</source>
        <translation>Page de garde avant la tâche</translation>
    </message>
    <message>
        <source>End:</source>
        <extracomment>A noun: the cover sheet after the job.</extracomment>
        <translation>Fin&#xa0;:</translation>
    </message>
    <message>
        <source>Banner after the job</source>
        <translation>Page de garde après la tâche</translation>
    </message>
    <message>
        <source>Text</source>
        <extracomment>Tab: options of text files.</extracomment>
        <translation>Texte</translation>
    </message>
    <message>
        <source>The following options apply only when printing text files.</source>
        <translation>Les options suivantes ne s&apos;appliquent qu&apos;à l&apos;impression de fichiers texte.</translation>
    </message>
    <message>
        <source>Margins</source>
        <translation>Marges</translation>
    </message>
    <message>
        <source>Use device default margins</source>
        <translation>Utiliser les marges par défaut du périphérique</translation>
    </message>
    <message>
        <source>Units:</source>
        <extracomment>Units of length, followed by the choice: points, 1/10 inches, mm.</extracomment>
        <translation>Unité&#xa0;:</translation>
    </message>
    <message>
        <source>Left:</source>
        <extracomment>Margin at the left.</extracomment>
        <translation>Gauche&#xa0;:</translation>
    </message>
    <message>
        <source>Left margin</source>
        <translation>Marge gauche</translation>
    </message>
    <message>
        <source>Right:</source>
        <extracomment>Margin at the right.</extracomment>
        <translation>Droite&#xa0;:</translation>
    </message>
    <message>
        <source>Right margin</source>
        <translation>Marge droite</translation>
    </message>
    <message>
        <source>Top:</source>
        <extracomment>Margin at the top.</extracomment>
        <translation>Haut&#xa0;:</translation>
    </message>
    <message>
        <source>Top margin</source>
        <translation>Marge du haut</translation>
    </message>
    <message>
        <source>Bottom:</source>
        <extracomment>Margin at the bottom.</extracomment>
        <translation>Bas&#xa0;:</translation>
    </message>
    <message>
        <source>Bottom margin</source>
        <translation>Marge du bas</translation>
    </message>
    <message>
        <source>Plain Text Options</source>
        <extracomment>Options of text files without formatting.</extracomment>
        <translation>Options de texte brut</translation>
    </message>
    <message>
        <source>Spacing</source>
        <extracomment>Box: characters and lines per inch.</extracomment>
        <translation>Espacement</translation>
    </message>
    <message>
        <source>Characters per inch:</source>
        <translation>Caractères par pouce&#xa0;:</translation>
    </message>
    <message>
        <source>Lines per inch:</source>
        <translation>Lignes par pouce&#xa0;:</translation>
    </message>
    <message>
        <source>Columns</source>
        <extracomment>Box: into how many columns the text of a page is set.</extracomment>
        <translation>Colonnes</translation>
    </message>
    <message>
        <source>Columns:</source>
        <extracomment>Number of columns of text on a page.</extracomment>
        <translation>Colonnes&#xa0;:</translation>
    </message>
    <message>
        <source>Columns of text on the page</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Colonnes de texte sur la page</translation>
    </message>
    <message>
        <source>Page Decoration</source>
        <extracomment>Box: what is added to printed text.</extracomment>
        <translation>Habillage de la page</translation>
    </message>
    <message>
        <source>Pretty printing</source>
        <extracomment>Option: a header on each page, keywords of programming languages in bold.</extracomment>
        <translation>Impression enrichie</translation>
    </message>
    <message>
        <source>Look of the printed text</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Aspect du texte imprimé</translation>
    </message>
    <message>
        <source>Graphics</source>
        <extracomment>Tab: options of image files.</extracomment>
        <translation>Images</translation>
    </message>
    <message>
        <source>The following options apply only when printing image files.</source>
        <translation>Les options suivantes ne s&apos;appliquent qu&apos;à l&apos;impression de fichiers image.</translation>
    </message>
    <message>
        <source>Color Adjustments</source>
        <translation>Réglage des couleurs</translation>
    </message>
    <message>
        <source>Use default color settings</source>
        <translation>Utiliser les couleurs par défaut</translation>
    </message>
    <message>
        <source>Brightness:</source>
        <translation>Luminosité&#xa0;:</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Luminosité</translation>
    </message>
    <message>
        <source>Gamma:</source>
        <extracomment>Gamma correction of an image.</extracomment>
        <translation>Gamma&#xa0;:</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>Gamma</translation>
    </message>
    <message>
        <source>Hue:</source>
        <extracomment>Turn of an image&apos;s colors around the color circle.</extracomment>
        <translation>Teinte&#xa0;:</translation>
    </message>
    <message>
        <source>Hue</source>
        <translation>Teinte</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <extracomment>Strength of an image&apos;s colors.</extracomment>
        <translation>Saturation&#xa0;:</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>Saturation</translation>
    </message>
    <message>
        <source>Sample image with these colors</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Exemple d&apos;image avec ces couleurs</translation>
    </message>
    <message>
        <source>Image Size</source>
        <translation>Taille de l&apos;image</translation>
    </message>
    <message>
        <source>Use specific resolution</source>
        <extracomment>One of two ways to say how large an image is printed: pixels per inch.</extracomment>
        <translation>Choisir la résolution</translation>
    </message>
    <message>
        <source>Resolution</source>
        <extracomment>Names the field of the resolution in pixels per inch, for screen readers.</extracomment>
        <translation>Résolution</translation>
    </message>
    <message>
        <source>ppi</source>
        <extracomment>Unit behind a number: pixels per inch.</extracomment>
        <translation>ppp</translation>
    </message>
    <message>
        <source>Use scaling</source>
        <extracomment>One of two ways to say how large an image is printed: percent.</extracomment>
        <translation>Choisir l&apos;échelle</translation>
    </message>
    <message>
        <source>Scaling</source>
        <extracomment>Names the field of the size in percent of the page, for screen readers.</extracomment>
        <translation>Échelle</translation>
    </message>
    <message>
        <source>%</source>
        <extracomment>Unit behind a number: percent of the page.</extracomment>
        <translation>%</translation>
    </message>
    <message>
        <source>Fit to Page</source>
        <extracomment>Button: makes the image as large as the page.</extracomment>
        <translation>Ajuster à la page</translation>
    </message>
    <message>
        <source>Image Position</source>
        <extracomment>Box: where an image is printed on the page.</extracomment>
        <translation>Position de l&apos;image</translation>
    </message>
    <message>
        <source>Position of the image on the page</source>
        <translation>Position de l&apos;image sur la page</translation>
    </message>
    <message>
        <source>Vertical position</source>
        <translation>Position verticale</translation>
    </message>
    <message>
        <source>Horizontal position</source>
        <translation>Position horizontale</translation>
    </message>
    <message>
        <source>Advanced</source>
        <extracomment>Tab: all options of the printer&apos;s driver.</extracomment>
        <translation>Avancé</translation>
    </message>
    <message>
        <source>Driver options</source>
        <extracomment>Names the tree of the printer&apos;s options, for screen readers.</extracomment>
        <translation>Options du pilote</translation>
    </message>
    <message>
        <source>This printer has no driver with options of its own.</source>
        <translation>Cette imprimante n&apos;a pas de pilote avec des options propres.</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Ai&amp;de</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Appliquer</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;nnuler</translation>
    </message>
</context>
</TS>
