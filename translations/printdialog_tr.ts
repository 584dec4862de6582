<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr" sourcelanguage="en">
<context>
    <name>LengthUnits</name>
    <message>
        <source>points</source>
        <extracomment>Unit of the margins: 1/72 inch.</extracomment>
        <translation>punto</translation>
    </message>
    <message>
        <source>1/10 inches</source>
        <extracomment>Unit of the margins: tenths of an inch.</extracomment>
        <translation>1/10 inç</translation>
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
        <translation>%1 (kaldırıldı)</translation>
    </message>
</context>
<context>
    <name>PrintDialog</name>
    <message>
        <source>This version has no properties dialog.</source>
        <translation>Bu sürümde özellikler penceresi yok.</translation>
    </message>
    <message>
        <source>Error!</source>
        <extracomment>Title of a message: something could not be done.</extracomment>
        <translation>Hata!</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be made the default.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>“%1” varsayılan yazıcı yapılamadı.</translation>
    </message>
    <message>
        <source>Warning!</source>
        <extracomment>Title of a message: what is asked for cannot be done now.</extracomment>
        <translation>Uyarı!</translation>
    </message>
    <message>
        <source>You can&apos;t print anything while printer is stopped. Please, start the selected printer.</source>
        <translation>Yazıcı durdurulmuş durumdayken yazdırma yapılamaz. Lütfen seçili yazıcıyı başlatın.</translation>
    </message>
    <message>
        <source>Invalid page ranges &quot;%1&quot;
Error at position %1: invalid range value &quot;%1&quot;</source>
        <extracomment>Number the placeholders in a translation: %1 is all that was typed, %2 the position of the error in it, %3 what stands there.</extracomment>
        <translation>Geçersiz sayfa aralıkları: “%1”
%2. konumda hata: geçersiz aralık değeri “%3”</translation>
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
        <translation>Yazıcı</translation>
    </message>
    <message>
        <source>The printer or class of printers that the job is sent to</source>
        <translation>İşin gönderileceği yazıcı veya yazıcı sınıfı</translation>
    </message>
    <message>
        <source>Set as User Default</source>
        <extracomment>Button, with little room: makes the chosen printer the default of this user (not of the whole system).</extracomment>
        <translation>Varsayılan Yazıcım Yap</translation>
    </message>
    <message>
        <source>Makes this printer the one that you print to when you choose none</source>
        <translation>Yazıcı seçmediğinizde bu yazıcının kullanılmasını sağlar</translation>
    </message>
    <message>
        <source>Properties...</source>
        <extracomment>Button: opens the window with all options of the printer.</extracomment>
        <translation>Özellikler...</translation>
    </message>
    <message>
        <source>Shows all options of this printer</source>
        <translation>Bu yazıcının tüm seçeneklerini gösterir</translation>
    </message>
    <message>
        <source>Picture of the printer</source>
        <translation>Yazıcının resmi</translation>
    </message>
    <message>
        <source>Start</source>
        <extracomment>Button, with little room: a verb. Puts the stopped printer into operation again.</extracomment>
        <translation>Başlat</translation>
    </message>
    <message>
        <source>Starts this printer when it is stopped or rejects jobs</source>
        <translation>Durdurulmuş veya iş kabul etmeyen bu yazıcıyı başlatır</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>Konum:</translation>
    </message>
    <message>
        <source>Location of the printer</source>
        <translation>Yazıcının konumu</translation>
    </message>
    <message>
        <source>unknown</source>
        <extracomment>Where a printer stands, what state it is in or how it is described: not known.</extracomment>
        <translation>bilinmiyor</translation>
    </message>
    <message>
        <source>Status:</source>
        <extracomment>Followed by the state of the printer, for instance: idle, accepting jobs.</extracomment>
        <translation>Durum:</translation>
    </message>
    <message>
        <source>Status of the printer</source>
        <translation>Yazıcının durumu</translation>
    </message>
    <message>
        <source>Description:</source>
        <extracomment>Followed by the description of the printer.</extracomment>
        <translation>Açıklama:</translation>
    </message>
    <message>
        <source>Description of the printer</source>
        <translation>Yazıcının açıklaması</translation>
    </message>
    <message>
        <source>Page Selection</source>
        <extracomment>The box around the choice of the pages to print.</extracomment>
        <translation>Sayfa Seçimi</translation>
    </message>
    <message>
        <source>All pages</source>
        <translation>Tüm sayfalar</translation>
    </message>
    <message>
        <source>Even pages</source>
        <translation>Çift sayfalar</translation>
    </message>
    <message>
        <source>Odd pages</source>
        <translation>Tek sayfalar</translation>
    </message>
    <message>
        <source>Some pages:</source>
        <extracomment>Followed by a field for page numbers.</extracomment>
        <translation>Belirli sayfalar:</translation>
    </message>
    <message>
        <source>Pages to print</source>
        <extracomment>Names the field for page numbers, for screen readers.</extracomment>
        <translation>Yazdırılacak sayfalar</translation>
    </message>
    <message>
        <source>Page numbers and groups of pages, separated by commas</source>
        <translation>Virgülle ayrılmış sayfa numaraları ve sayfa aralıkları</translation>
    </message>
    <message>
        <source>Enter page numbers and/or groups of pages to print separated by commas (1,2-5,10-12,17).</source>
        <extracomment>The example is what is typed: digits 0 to 9, hyphens and commas in every language.</extracomment>
        <translation>Yazdırılacak sayfa numaralarını ve/veya sayfa aralıklarını virgülle ayırarak girin (1,2-5,10-12,17).</translation>
    </message>
    <message>
        <source>Copies</source>
        <extracomment>The box around the number of copies and their order; also names the field of the number.</extracomment>
        <translation>Kopyalar</translation>
    </message>
    <message>
        <source>Copies [1~100]:</source>
        <extracomment>Number of copies, from 1 to 100.</extracomment>
        <translation>Kopyalar [1~100]:</translation>
    </message>
    <message>
        <source>Collate copies</source>
        <extracomment>Option: print the copies one after the other (1,2,3,1,2,3), not page by page (1,1,2,2,3,3).</extracomment>
        <translation>Kopyaları harmanla</translation>
    </message>
    <message>
        <source>Reverse All Pages (3,2,1)</source>
        <extracomment>Option: print the last page first.</extracomment>
        <translation>Tüm sayfaları ters sırala (3,2,1)</translation>
    </message>
    <message>
        <source>Order of the printed pages</source>
        <extracomment>Describes a picture that shows the order of the pages, for screen readers.</extracomment>
        <translation>Yazdırılan sayfaların sırası</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Yardım</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Tamam</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>İ&amp;ptal</translation>
    </message>
</context>
<context>
    <name>PrinterPropertiesDialog</name>
    <message>
        <source>LPR GUI: Options Conflict</source>
        <extracomment>Title of a message. Keep the name lpr.</extracomment>
        <translation>LPR GUI: Seçenek Çakışması</translation>
    </message>
    <message>
        <source>Some options selected are in conflict.
Resolve those conflicts before continuing.
Hint: click Advanced on Device tab.
Conflicting options will be shown in red color.
</source>
        <extracomment>&quot;Advanced&quot; is the tab of that name.</extracomment>
        <translation>Seçilen bazı seçenekler birbiriyle çakışıyor.
Devam etmeden önce bu çakışmaları giderin.
İpucu: “Gelişmiş” sekmesine bakın.
Çakışan seçenekler kırmızı renkle gösterilir.
</translation>
    </message>
    <message>
        <source>Options Not Saved</source>
        <translation>Seçenekler Kaydedilemedi</translation>
    </message>
    <message>
        <source>The options of &quot;%1&quot; could not be saved: the print server does not answer, or the file of the saved options cannot be written. The changes are listed below; they will not apply to what you print.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>“%1” yazıcısının seçenekleri kaydedilemedi: yazdırma sunucusu yanıt vermiyor veya kayıtlı seçeneklerin dosyasına yazılamıyor. Değişiklikler aşağıda listelenmiştir; yazdırdıklarınıza uygulanmayacaktır.</translation>
    </message>
    <message>
        <source>Unknown Printer</source>
        <translation>Bilinmeyen Yazıcı</translation>
    </message>
    <message>
        <source>The print server no longer knows &quot;%1&quot;. Its options were saved on this computer for the case that it comes back.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>Yazdırma sunucusu “%1” yazıcısını artık tanımıyor. Yazıcı yeniden ortaya çıkarsa diye seçenekleri bu bilgisayara kaydedildi.</translation>
    </message>
</context>
<context>
    <name>PrinterPropertiesDialogBase</name>
    <message>
        <source>&apos;%s&apos; Properties</source>
        <extracomment>Title of the window: the properties of the printer %s.</extracomment>
        <translation>“%s” Özellikleri</translation>
    </message>
    <message>
        <source>General</source>
        <extracomment>Tab: paper, orientation, duplex and the like.</extracomment>
        <translation>Genel</translation>
    </message>
    <message>
        <source>Paper Options</source>
        <extracomment>Box: size and type of the paper.</extracomment>
        <translation>Kâğıt Seçenekleri</translation>
    </message>
    <message>
        <source>Paper Size:</source>
        <translation>Kâğıt boyutu:</translation>
    </message>
    <message>
        <source>Paper Type:</source>
        <extracomment>What the paper is made of: plain, glossy, transparency ...</extracomment>
        <translation>Kâğıt türü:</translation>
    </message>
    <message>
        <source>Paper Orientation</source>
        <translation>Kâğıt Yönü</translation>
    </message>
    <message>
        <source>Portrait</source>
        <extracomment>Orientation of the page: upright. (Not a picture of a person.)</extracomment>
        <translation>Dikey</translation>
    </message>
    <message>
        <source>Landscape</source>
        <extracomment>Orientation of the page: wide. (Not a picture of scenery.)</extracomment>
        <translation>Yatay</translation>
    </message>
    <message>
        <source>Reverse</source>
        <extracomment>Option of the orientation: the page turned upside down, by 180 degrees.</extracomment>
        <translation>Ters</translation>
    </message>
    <message>
        <source>Orientation of the page</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Sayfanın yönü</translation>
    </message>
    <message>
        <source>Double-Sided Printing</source>
        <translation>Çift Taraflı Yazdırma</translation>
    </message>
    <message>
        <source>Off</source>
        <extracomment>Double-sided printing is off: printed on one side only.</extracomment>
        <translation>Kapalı</translation>
    </message>
    <message>
        <source>Long Edge [Book]</source>
        <extracomment>Double-sided, pages turned along the long edge of the sheet as in a book.</extracomment>
        <translation>Uzun kenar [kitap]</translation>
    </message>
    <message>
        <source>Short Edge [Tablet]</source>
        <extracomment>Double-sided, pages turned along the short edge of the sheet as on a notepad.</extracomment>
        <translation>Kısa kenar [bloknot]</translation>
    </message>
    <message>
        <source>How both sides of a sheet are printed</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Yaprağın iki yüzünün nasıl yazdırıldığı</translation>
    </message>
    <message>
        <source>Pages per Side [N-Up]</source>
        <extracomment>How many pages are put, smaller, on one side of a sheet.</extracomment>
        <translation>Bir Yüzdeki Sayfa Sayısı</translation>
    </message>
    <message>
        <source>Normal (1-Up)</source>
        <extracomment>One page on each side of a sheet.</extracomment>
        <translation>Normal (1 sayfa)</translation>
    </message>
    <message>
        <source>2-Up</source>
        <extracomment>Two pages on each side of a sheet.</extracomment>
        <translation>2 sayfa</translation>
    </message>
    <message>
        <source>4-Up</source>
        <extracomment>Four pages on each side of a sheet.</extracomment>
        <translation>4 sayfa</translation>
    </message>
    <message>
        <source>Pages on one side of a sheet</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Yaprağın bir yüzündeki sayfalar</translation>
    </message>
    <message>
        <source>Banners</source>
        <extracomment>Box: cover sheets that say whose job it is, before and after the job.</extracomment>
        <translation>Kapak Sayfaları</translation>
    </message>
    <message>
        <source>Start:</source>
        <extracomment>A noun: the cover sheet before the job.</extracomment>
        <translation>Başlangıç:</translation>
    </message>
    <message>
        <source>Banner before the job</source>
        <translation>İşten önceki kapak sayfası</translation>
    </message>
    <message>
        <source>End:</source>
        <extracomment>A noun: the cover sheet after the job.</extracomment>
        <translation>Bitiş:</translation>
    </message>
    <message>
        <source>Banner after the job</source>
        <translation>İşten sonraki kapak sayfası</translation>
    </message>
    <message>
        <source>Text</source>
        <extracomment>Tab: options of text files.</extracomment>
        <translation>Metin</translation>
    </message>
    <message>
        <source>The following options apply only when printing text files.</source>
        <translation>Aşağıdaki seçenekler yalnızca metin dosyaları yazdırılırken uygulanır.</translation>
    </message>
    <message>
        <source>Margins</source>
        <translation>Kenar Boşlukları</translation>
    </message>
    <message>
        <source>Use device default margins</source>
        <translation>Aygıtın varsayılan boşluklarını kullan</translation>
    </message>
    <message>
        <source>Units:</source>
        <extracomment>Units of length, followed by the choice: points, 1/10 inches, mm.</extracomment>
        <translation>Birim:</translation>
    </message>
    <message>
        <source>Left:</source>
        <extracomment>Margin at the left.</extracomment>
        <translation>Sol:</translation>
    </message>
    <message>
        <source>Left margin</source>
        <translation>Sol kenar boşluğu</translation>
    </message>
    <message>
        <source>Right:</source>
        <extracomment>Margin at the right.</extracomment>
        <translation>Sağ:</translation>
    </message>
    <message>
        <source>Right margin</source>
        <translation>Sağ kenar boşluğu</translation>
    </message>
    <message>
        <source>Top:</source>
        <extracomment>Margin at the top.</extracomment>
        <translation>Üst:</translation>
    </message>
    <message>
        <source>Top margin</source>
        <translation>Üst kenar boşluğu</translation>
    </message>
    <message>
        <source>Bottom:</source>
        <extracomment>Margin at the bottom.</extracomment>
        <translation>Alt:</translation>
    </message>
    <message>
        <source>Bottom margin</source>
        <translation>Alt kenar boşluğu</translation>
    </message>
    <message>
        <source>Plain Text Options</source>
        <extracomment>Options of text files without formatting.</extracomment>
        <translation>Düz Metin Seçenekleri</translation>
    </message>
    <message>
        <source>Spacing</source>
        <extracomment>Box: characters and lines per inch.</extracomment>
        <translation>Karakter ve Satır Aralığı</translation>
    </message>
    <message>
        <source>Characters per inch:</source>
        <translation>İnç başına karakter:</translation>
    </message>
    <message>
        <source>Lines per inch:</source>
        <translation>İnç başına satır:</translation>
    </message>
    <message>
        <source>Columns</source>
        <extracomment>Box: into how many columns the text of a page is set.</extracomment>
        <translation>Sütunlar</translation>
    </message>
    <message>
        <source>Columns:</source>
        <extracomment>Number of columns of text on a page.</extracomment>
        <translation>Sütunlar:</translation>
    </message>
    <message>
        <source>Columns of text on the page</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Sayfadaki metin sütunları</translation>
    </message>
    <message>
        <source>Page Decoration</source>
        <extracomment>Box: what is added to printed text.</extracomment>
        <translation>Sayfa Süslemesi</translation>
    </message>
    <message>
        <source>Pretty printing</source>
        <extracomment>Option: a header on each page, keywords of programming languages in bold.</extracomment>
        <translation>Biçimli yazdırma</translation>
    </message>
    <message>
        <source>Look of the printed text</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Yazdırılan metnin görünümü</translation>
    </message>
    <message>
        <source>Graphics</source>
        <extracomment>Tab: options of image files.</extracomment>
        <translation>Grafik</translation>
    </message>
    <message>
        <source>The following options apply only when printing image files.</source>
        <translation>Aşağıdaki seçenekler yalnızca görüntü dosyaları yazdırılırken uygulanır.</translation>
    </message>
    <message>
        <source>Color Adjustments</source>
        <translation>Renk Ayarları</translation>
    </message>
    <message>
        <source>Use default color settings</source>
        <translation>Varsayılan renk ayarlarını kullan</translation>
    </message>
    <message>
        <source>Brightness:</source>
        <translation>Parlaklık:</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Parlaklık</translation>
    </message>
    <message>
        <source>Gamma:</source>
        <extracomment>Gamma correction of an image.</extracomment>
        <translation>Gama:</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>Gama</translation>
    </message>
    <message>
        <source>Hue:</source>
        <extracomment>Turn of an image&apos;s colors around the color circle.</extracomment>
        <translation>Renk tonu:</translation>
    </message>
    <message>
        <source>Hue</source>
        <translation>Renk tonu</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <extracomment>Strength of an image&apos;s colors.</extracomment>
        <translation>Doygunluk:</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>Doygunluk</translation>
    </message>
    <message>
        <source>Sample image with these colors</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>Bu renklerle örnek görüntü</translation>
    </message>
    <message>
        <source>Image Size</source>
        <translation>Görüntü Boyutu</translation>
    </message>
    <message>
        <source>Use specific resolution</source>
        <extracomment>One of two ways to say how large an image is printed: pixels per inch.</extracomment>
        <translation>Belirli çözünürlük kullan</translation>
    </message>
    <message>
        <source>Resolution</source>
        <extracomment>Names the field of the resolution in pixels per inch, for screen readers.</extracomment>
        <translation>Çözünürlük</translation>
    </message>
    <message>
        <source>ppi</source>
        <extracomment>Unit behind a number: pixels per inch.</extracomment>
        <translation>ppi</translation>
    </message>
    <message>
        <source>Use scaling</source>
        <extracomment>One of two ways to say how large an image is printed: percent.</extracomment>
        <translation>Ölçekleme kullan</translation>
    </message>
    <message>
        <source>Scaling</source>
        <extracomment>Names the field of the size in percent of the page, for screen readers.</extracomment>
        <translation>Ölçekleme</translation>
    </message>
    <message>
        <source>%</source>
        <extracomment>Unit behind a number: percent of the page.</extracomment>
        <translation>%</translation>
    </message>
    <message>
        <source>Fit to Page</source>
        <extracomment>Button: makes the image as large as the page.</extracomment>
        <translation>Sayfaya Sığdır</translation>
    </message>
    <message>
        <source>Image Position</source>
        <extracomment>Box: where an image is printed on the page.</extracomment>
        <translation>Görüntü Konumu</translation>
    </message>
    <message>
        <source>Position of the image on the page</source>
        <translation>Görüntünün sayfadaki konumu</translation>
    </message>
    <message>
        <source>Vertical position</source>
        <translation>Dikey konum</translation>
    </message>
    <message>
        <source>Horizontal position</source>
        <translation>Yatay konum</translation>
    </message>
    <message>
        <source>Advanced</source>
        <extracomment>Tab: all options of the printer&apos;s driver.</extracomment>
        <translation>Gelişmiş</translation>
    </message>
    <message>
        <source>Driver options</source>
        <extracomment>Names the tree of the printer&apos;s options, for screen readers.</extracomment>
        <translation>Sürücü seçenekleri</translation>
    </message>
    <message>
        <source>This printer has no driver with options of its own.</source>
        <translation>Bu yazıcının, kendine özgü seçenekleri olan bir sürücüsü yok.</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Yardım</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Uygula</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Tamam</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>İ&amp;ptal</translation>
    </message>
</context>
</TS>
