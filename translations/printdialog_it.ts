<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>LengthUnits</name>
    <message>
        <source>points</source>
        <extracomment>Unit of the margins: 1/72 inch.</extracomment>
        <translation>punti</translation>
    </message>
    <message>
        <source>1/10 inches</source>
        <extracomment>Unit of the margins: tenths of an inch.</extracomment>
        <translation>1/10 di pollice</translation>
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
        <translation>%1 (rimossa)</translation>
    </message>
</context>
<context>
    <name>PrintDialog</name>
    <message>
        <source>This version has no properties dialog.</source>
        <translation>Questa versione non ha la finestra delle proprietà.</translation>
    </message>
    <message>
        <source>Error!</source>
        <extracomment>Title of a message: something could not be done.</extracomment>
        <translation>Errore!</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be made the default.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>Impossibile impostare «%1» come stampante predefinita.</translation>
    </message>
    <message>
        <source>Warning!</source>
        <extracomment>Title of a message: what is asked for cannot be done now.</extracomment>
        <translation>Attenzione!</translation>
    </message>
    <message>
        <source>You can&apos;t print anything while printer is stopped. Please, start the selected printer.</source>
        <translation>Non è possibile stampare mentre la stampante è ferma. Avviare la stampante selezionata.</translation>
    </message>
    <message>
        <source>Invalid page ranges &quot;%1&quot;
Error at position %1: invalid range value &quot;%1&quot;</source>
        <extracomment>Number the placeholders in a translation: %1 is all that was typed, %2 the position of the error in it, %3 what stands there.</extracomment>
        <translation>Intervalli di pagine non validi: «%1»
Errore alla posizione %2: intervallo non valido «%3»</translation>
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
        <translation>Stampante</translation>
    </message>
    <message>
        <source>The printer or class of printers that the job is sent to</source>
        <translation>La stampante o la classe di stampanti a cui viene inviato il lavoro</translation>
    </message>
    <message>
        <source>Set as User Default</source>
        <extracomment>Button, with little room: makes the chosen printer the default of this user (not of the whole system).</extracomment>
        <translation>Imposta come predefinita</translation>
    </message>
    <message>
        <source>Makes this printer the one that you print to when you choose none</source>
        <translation>Fa sì che si stampi su questa stampante quando non se ne sceglie nessuna</translation>
    </message>
    <message>
        <source>Properties...</source>
        <extracomment>Button: opens the window with all options of the printer.</extracomment>
        <translation>Proprietà...</translation>
    </message>
    <message>
        <source>Shows all options of this printer</source>
        <translation>Mostra tutte le opzioni di questa stampante</translation>
    </message>
    <message>
        <source>Picture of the printer</source>
        <translation>Immagine della stampante</translation>
    </message>
    <message>
        <source>Start</source>
        <extracomment>Button, with little room: a verb. Puts the stopped printer into operation again.</extracomment>
        <translation>Avvia</translation>
    </message>
    <message>
        <source>Starts this printer when it is stopped or rejects jobs</source>
        <translation>Avvia questa stampante se è ferma o rifiuta lavori</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>Posizione:</translation>
    </message>
    <message>
        <source>Location of the printer</source>
        <translation>Posizione della stampante</translation>
    </message>
    <message>
        <source>unknown</source>
        <extracomment>Where a printer stands, what state it is in or how it is described: not known.</extracomment>
        <translation>sconosciuto</translation>
    </message>
    <message>
        <source>Status:</source>
        <extracomment>Followed by the state of the printer, for instance: idle, accepting jobs.</extracomment>
        <translation>Stato:</translation>
    </message>
    <message>
        <source>Status of the printer</source>
        <translation>Stato della stampante</translation>
    </message>
    <message>
        <source>Description:</source>
        <extracomment>Followed by the description of the printer.</extracomment>
        <translation>Descrizione:</translation>
    </message>
    <message>
        <source>Description of the printer</source>
        <translation>Descrizione della stampante</translation>
    </message>
    <message>
        <source>Page Selection</source>
        <extracomment>The box around the choice of the pages to print.</extracomment>
        <translation>Selezione delle pagine</translation>
    </message>
    <message>
        <source>All pages</source>
        <translation>Tutte le pagine</translation>
    </message>
    <message>
        <source>Even pages</source>
        <translation>Pagine pari</translation>
    </message>
    <message>
        <source>Odd pages</source>
        <translation>Pagine dispari</translation>
    </message>
    <message>
        <source>Some pages:</source>
        <extracomment>Followed by a field for page numbers.</extracomment>
        <translation>Alcune pagine:</translation>
    </message>
    <message>
        <source>Pages to print</source>
        <extracomment>Names the field for page numbers, for screen readers.</extracomment>
        <translation>Pagine da stampare</translation>
    </message>
    <message>
        <source>Page numbers and groups of pages, separated by commas</source>
        <translation>Numeri e intervalli di pagine, separati da virgole</translation>
    </message>
    <message>
        <source>Enter page numbers and/or groups of pages to print separated by commas (1,2-5,10-12,17).</source>
        <extracomment>The example is what is typed: digits 0 to 9, hyphens and commas in every language.</extracomment>
        <translation>Inserire i numeri e/o gli intervalli delle pagine da stampare, separati da virgole (1,2-5,10-12,17).</translation>
    </message>
    <message>
        <source>Copies</source>
        <extracomment>The box around the number of copies and their order; also names the field of the number.</extracomment>
        <translation>Copie</translation>
    </message>
    <message>
        <source>Copies [1~100]:</source>
        <extracomment>Number of copies, from 1 to 100.</extracomment>
        <translation>Copie [1~100]:</translation>
    </message>
    <message>
        <source>Collate copies</source>
        <extracomment>Option: print the copies one after the other (1,2,3,1,2,3), not page by page (1,1,2,2,3,3).</extracomment>
        <translation>Fascicola le copie</translation>
    </message>
    <message>
        <source>Reverse All Pages (3,2,1)</source>
        <extracomment>Option: print the last page first.</extracomment>
        <translation>Ordine inverso (3,2,1)</translation>
    </message>
    <message>
        <source>Order of the printed pages</source>
        <extracomment>Describes a picture that shows the order of the pages, for screen readers.</extracomment>
        <translation>Ordine delle pagine stampate</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;iuto</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;nnulla</translation>
    </message>
</context>
<context>
    <name>PrinterPropertiesDialog</name>
    <message>
        <source>LPR GUI: Options Conflict</source>
        <extracomment>Title of a message. Keep the name lpr.</extracomment>
        <translation>LPR GUI: conflitto tra opzioni</translation>
    </message>
    <message>
        <source>Some options selected are in conflict.
Resolve those conflicts before continuing.
Hint: click Advanced on Device tab.
Conflicting options will be shown in red color.
</source>
        <extracomment>&quot;Advanced&quot; is the tab of that name.</extracomment>
        <translation>Alcune delle opzioni selezionate sono in conflitto.
Risolvere i conflitti prima di continuare.
Suggerimento: aprire la scheda «Avanzate».
Le opzioni in conflitto vi sono mostrate in rosso.
</translation>
    </message>
    <message>
        <source>Options Not Saved</source>
        <translation>Opzioni non salvate</translation>
    </message>
    <message>
        <source>The options of &quot;%1&quot; could not be saved: the print server does not answer, or the file of the saved options cannot be written. The changes are listed below; they will not apply to what you print.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>Impossibile salvare le opzioni di «%1»: il server di stampa non risponde oppure non è possibile scrivere il file delle opzioni salvate. Le modifiche sono elencate di seguito e non avranno effetto sulle stampe.</translation>
    </message>
    <message>
        <source>Unknown Printer</source>
        <translation>Stampante sconosciuta</translation>
    </message>
    <message>
        <source>The print server no longer knows &quot;%1&quot;. Its options were saved on this computer for the case that it comes back.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>Il server di stampa non conosce più la stampante «%1». Le sue opzioni sono state salvate su questo computer nel caso in cui torni disponibile.</translation>
    </message>
</context>
<context>
    <name>PrinterPropertiesDialogBase</name>
    <message>
        <source>&apos;%s&apos; Properties</source>
        <extracomment>Title of the window: the properties of the printer %s.</extracomment>
        <translation>Proprietà di «%s»</translation>
    </message>
    <message>
        <source>General</source>
        <extracomment>Tab: paper, orientation, duplex and the like.</extracomment>
        <translation>Generale</translation>
    </message>
    <message>
        <source>Paper Options</source>
        <extracomment>Box: size and type of the paper.</extracomment>
        <translation>Opzioni della carta</translation>
    </message>
    <message>
        <source>Paper Size:</source>
        <translation>Formato carta:</translation>
    </message>
    <message>
        <source>Paper Type:</source>
        <extracomment>What the paper is made of: plain, glossy, transparency ...</extracomment>
        <translation>Tipo di carta:</translation>
    </message>
    <message>
        <source>Paper Orientation</source>
        <translation>Orientamento</translation>
    </message>
    <message>
        <source>Portrait</source>
        <extracomment>Orientation of the page: upright. (Not a picture of a person.)</extracomment>
        <translation>Verticale</translation>
    </message>
    <message>
        <source>Landscape</source>
        <extracomment>Orientation of the page: wide. (Not a picture of scenery.)</extracomment>
        <translation>Orizzontale</translation>
    </message>
    <message>
        <source>Reverse</source>
        <extracomment>Option of the orientation: the page turned upside down, by 180 degrees.</extracomment>
        <translation>Ruota di 180°</translation>
    </message>
    <message>
        <source>Orientation of the page</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Orientamento della pagina</translation>
    </message>
    <message>
        <source>Double-Sided Printing</source>
        <translation>Stampa fronte/retro</translation>
    </message>
    <message>
        <source>Off</source>
        <extracomment>Double-sided printing is off: printed on one side only.</extracomment>
        <translation>Disattivata</translation>
    </message>
    <message>
        <source>Long Edge [Book]</source>
        <extracomment>Double-sided, pages turned along the long edge of the sheet as in a book.</extracomment>
        <translation>Lato lungo [libro]</translation>
    </message>
    <message>
        <source>Short Edge [Tablet]</source>
        <extracomment>Double-sided, pages turned along the short edge of the sheet as on a notepad.</extracomment>
        <translation>Lato corto [blocco]</translation>
    </message>
    <message>
        <source>How both sides of a sheet are printed</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Come vengono stampate le due facciate di un foglio</translation>
    </message>
    <message>
        <source>Pages per Side [N-Up]</source>
        <extracomment>How many pages are put, smaller, on one side of a sheet.</extracomment>
        <translation>Pagine per facciata</translation>
    </message>
    <message>
        <source>Normal (1-Up)</source>
        <extracomment>One page on each side of a sheet.</extracomment>
        <translation>Normale (1 pagina)</translation>
    </message>
    <message>
        <source>2-Up</source>
        <extracomment>Two pages on each side of a sheet.</extracomment>
        <translation>2 pagine</translation>
    </message>
    <message>
        <source>4-Up</source>
        <extracomment>Four pages on each side of a sheet.</extracomment>
        <translation>4 pagine</translation>
    </message>
    <message>
        <source>Pages on one side of a sheet</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Pagine su una facciata del foglio</translation>
    </message>
    <message>
        <source>Banners</source>
        <extracomment>Box: cover sheets that say whose job it is, before and after the job.</extracomment>
        <translation>Pagine di separazione</translation>
    </message>
    <message>
        <source>Start:</source>
        <extracomment>A noun: the cover sheet before the job.</extracomment>
        <translation>Iniziale:</translation>
    </message>
    <message>
        <source>Banner before the job</source>
        <translation>Pagina di separazione prima del lavoro</translation>
    </message>
    <message>
        <source>End:</source>
        <extracomment>A noun: the cover sheet after the job.</extracomment>
        <translation>Finale:</translation>
    </message>
    <message>
        <source>Banner after the job</source>
        <translation>Pagina di separazione dopo il lavoro</translation>
    </message>
    <message>
        <source>Text</source>
        <extracomment>Tab: options of text files.</extracomment>
        <translation>Testo</translation>
    </message>
    <message>
        <source>The following options apply only when printing text files.</source>
        <translation>Le opzioni seguenti valgono solo per la stampa di file di testo.</translation>
    </message>
    <message>
        <source>Margins</source>
        <translation>Margini</translation>
    </message>
    <message>
        <source>Use device default margins</source>
        <translation>Usa i margini predefiniti del dispositivo</translation>
    </message>
    <message>
        <source>Units:</source>
        <extracomment>Units of length, followed by the choice: points, 1/10 inches, mm.</extracomment>
        <translation>Unità:</translation>
    </message>
    <message>
        <source>Left:</source>
        <extracomment>Margin at the left.</extracomment>
        <translation>Sinistro:</translation>
    </message>
    <message>
        <source>Left margin</source>
        <translation>Margine sinistro</translation>
    </message>
    <message>
        <source>Right:</source>
        <extracomment>Margin at the right.</extracomment>
        <translation>Destro:</translation>
    </message>
    <message>
        <source>Right margin</source>
        <translation>Margine destro</translation>
    </message>
    <message>
        <source>Top:</source>
        <extracomment>Margin at the top.</extracomment>
        <translation>Superiore:</translation>
    </message>
    <message>
        <source>Top margin</source>
        <translation>Margine superiore</translation>
    </message>
    <message>
        <source>Bottom:</source>
        <extracomment>Margin at the bottom.</extracomment>
        <translation>Inferiore:</translation>
    </message>
    <message>
        <source>Bottom margin</source>
        <translation>Margine inferiore</translation>
    </message>
    <message>
        <source>Plain Text Options</source>
        <extracomment>Options of text files without formatting.</extracomment>
        <translation>Opzioni per il testo semplice</translation>
    </message>
    <message>
        <source>Spacing</source>
        <extracomment>Box: characters and lines per inch.</extracomment>
        <translation>Spaziatura</translation>
    </message>
    <message>
        <source>Characters per inch:</source>
        <translation>Caratteri per pollice:</translation>
    </message>
    <message>
        <source>Lines per inch:</source>
        <translation>Righe per pollice:</translation>
    </message>
    <message>
        <source>Columns</source>
        <extracomment>Box: into how many columns the text of a page is set.</extracomment>
        <translation>Colonne</translation>
    </message>
    <message>
        <source>Columns:</source>
        <extracomment>Number of columns of text on a page.</extracomment>
        <translation>Colonne:</translation>
    </message>
    <message>
        <source>Columns of text on the page</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Colonne di testo nella pagina</translation>
    </message>
    <message>
        <source>Page Decoration</source>
        <extracomment>Box: what is added to printed text.</extracomment>
        <translation>Decorazione della pagina</translation>
    </message>
    <message>
        <source>Pretty printing</source>
        <extracomment>Option: a header on each page, keywords of programming languages in bold.</extracomment>
        <translation>Stampa migliorata</translation>
    </message>
    <message>
        <source>Look of the printed text</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Aspetto del testo stampato</translation>
    </message>
    <message>
        <source>Graphics</source>
        <extracomment>Tab: options of image files.</extracomment>
        <translation>Immagini</translation>
    </message>
    <message>
        <source>The following options apply only when printing image files.</source>
        <translation>Le opzioni seguenti valgono solo per la stampa di file immagine.</translation>
    </message>
    <message>
        <source>Color Adjustments</source>
        <translation>Regolazione dei colori</translation>
    </message>
    <message>
        <source>Use default color settings</source>
        <translation>Usa i colori predefiniti</translation>
    </message>
    <message>
        <source>Brightness:</source>
        <translation>Luminosità:</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Luminosità</translation>
    </message>
    <message>
        <source>Gamma:</source>
        <extracomment>Gamma correction of an image.</extracomment>
        <translation>Gamma:</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>Gamma</translation>
    </message>
    <message>
        <source>Hue:</source>
        <extracomment>Turn of an image&apos;s colors around the color circle.</extracomment>
        <translation>Tonalità:</translation>
    </message>
    <message>
        <source>Hue</source>
        <translation>Tonalità</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <extracomment>Strength of an image&apos;s colors.</extracomment>
        <translation>Saturazione:</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>Saturazione</translation>
    </message>
    <message>
        <source>Sample image with these colors</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Immagine di esempio con questi colori</translation>
    </message>
    <message>
        <source>Image Size</source>
        <translation>Dimensione dell&apos;immagine</translation>
    </message>
    <message>
        <source>Use specific resolution</source>
        <extracomment>One of two ways to say how large an image is printed: pixels per inch.</extracomment>
        <translation>Specifica la risoluzione</translation>
    </message>
    <message>
        <source>Resolution</source>
        <extracomment>Names the field of the resolution in pixels per inch, for screen readers.</extracomment>
        <translation>Risoluzione</translation>
    </message>
    <message>
        <source>ppi</source>
        <extracomment>Unit behind a number: pixels per inch.</extracomment>
        <translation>ppi</translation>
    </message>
    <message>
        <source>Use scaling</source>
        <extracomment>One of two ways to say how large an image is printed: percent.</extracomment>
        <translation>Specifica la scala</translation>
    </message>
    <message>
        <source>Scaling</source>
        <extracomment>Names the field of the size in percent of the page, for screen readers.</extracomment>
        <translation>Scala</translation>
    </message>
    <message>
        <source>%</source>
        <extracomment>Unit behind a number: percent of the page.</extracomment>
        <translation>%</translation>
    </message>
    <message>
        <source>Fit to Page</source>
        <extracomment>Button: makes the image as large as the page.</extracomment>
        <translation>Adatta alla pagina</translation>
    </message>
    <message>
        <source>Image Position</source>
        <extracomment>Box: where an image is printed on the page.</extracomment>
        <translation>Posizione dell&apos;immagine</translation>
    </message>
    <message>
        <source>Position of the image on the page</source>
        <translation>Posizione dell&apos;immagine nella pagina</translation>
    </message>
    <message>
        <source>Vertical position</source>
        <translation>Posizione verticale</translation>
    </message>
    <message>
        <source>Horizontal position</source>
        <translation>Posizione orizzontale</translation>
    </message>
    <message>
        <source>Advanced</source>
        <extracomment>Tab: all options of the printer&apos;s driver.</extracomment>
        <translation>Avanzate</translation>
    </message>
    <message>
        <source>Driver options</source>
        <extracomment>Names the tree of the printer&apos;s options, for screen readers.</extracomment>
        <translation>Opzioni del driver</translation>
    </message>
    <message>
        <source>This printer has no driver with options of its own.</source>
        <translation>Questa stampante non ha un driver con opzioni proprie.</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;iuto</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Applica</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;nnulla</translation>
    </message>
</context>
</TS>
