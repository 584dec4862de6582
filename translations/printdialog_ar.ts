<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>LengthUnits</name>
    <message>
        <source>points</source>
        <extracomment>Unit of the margins: 1/72 inch.</extracomment>
        <translation>نقاط</translation>
    </message>
    <message>
        <source>1/10 inches</source>
        <extracomment>Unit of the margins: tenths of an inch.</extracomment>
        <translation>أعشار البوصة</translation>
    </message>
    <message>
        <source>mm</source>
        <extracomment>Unit of the margins: millimeters.</extracomment>
        <translation>مم</translation>
    </message>
</context>
<context>
    <name>OptionChanges</name>
    <message>
        <source>%1 (removed)</source>
        <extracomment>One of the changes that are listed: the option %1 is no longer set.</extracomment>
        <translation>%1 (أُزيل)</translation>
    </message>
</context>
<context>
    <name>PrintDialog</name>
    <message>
        <source>This version has no properties dialog.</source>
        <translation>لا يحتوي هذا الإصدار على نافذة خصائص.</translation>
    </message>
    <message>
        <source>Error!</source>
        <extracomment>Title of a message: something could not be done.</extracomment>
        <translation>خطأ!</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be made the default.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>تعذّر جعل «‎%1‎» الطابعة الافتراضية.</translation>
    </message>
    <message>
        <source>Warning!</source>
        <extracomment>Title of a message: what is asked for cannot be done now.</extracomment>
        <translation>تحذير!</translation>
    </message>
    <message>
        <source>You can&apos;t print anything while printer is stopped. Please, start the selected printer.</source>
        <translation>لا يمكنك طباعة أي شيء ما دامت الطابعة متوقفة. من فضلك شغّل الطابعة المحددة.</translation>
    </message>
    <message>
        <source>Invalid page ranges &quot;%1&quot;
Error at position %1: invalid range value &quot;%1&quot;</source>
        <extracomment>Number the placeholders in a translation: %1 is all that was typed, %2 the position of the error in it, %3 what stands there.</extracomment>
        <translation>نطاقات صفحات غير صالحة: «‎%1‎»
خطأ في الموضع %2: قيمة نطاق غير صالحة «‎%3‎»</translation>
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
        <translation>الطابعة</translation>
    </message>
    <message>
        <source>The printer or class of printers that the job is sent to</source>
        <translation>الطابعة أو فئة الطابعات التي تُرسَل إليها المهمة</translation>
    </message>
    <message>
        <source>Set as User Default</source>
        <extracomment>Button, with little room: makes the chosen printer the default of this user (not of the whole system).</extracomment>
        <translation>اجعلها طابعتي الافتراضية</translation>
    </message>
    <message>
        <source>Makes this printer the one that you print to when you choose none</source>
        <translation>يجعل هذه الطابعة هي المستخدمة عندما لا تختار طابعة</translation>
    </message>
    <message>
        <source>Properties...</source>
        <extracomment>Button: opens the window with all options of the printer.</extracomment>
        <translation>خصائص...</translation>
    </message>
    <message>
        <source>Shows all options of this printer</source>
        <translation>يعرض كل خيارات هذه الطابعة</translation>
    </message>
    <message>
        <source>Picture of the printer</source>
        <translation>صورة الطابعة</translation>
    </message>
    <message>
        <source>Start</source>
        <extracomment>Button, with little room: a verb. Puts the stopped printer into operation again.</extracomment>
        <translation>شغّل</translation>
    </message>
    <message>
        <source>Starts this printer when it is stopped or rejects jobs</source>
        <translation>يشغّل هذه الطابعة إذا كانت متوقفة أو ترفض المهام</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>المكان:</translation>
    </message>
    <message>
        <source>Location of the printer</source>
        <translation>مكان الطابعة</translation>
    </message>
    <message>
        <source>unknown</source>
        <extracomment>Where a printer stands, what state it is in or how it is described: not known.</extracomment>
        <translation>غير معروف</translation>
    </message>
    <message>
        <source>Status:</source>
        <extracomment>Followed by the state of the printer, for instance: idle, accepting jobs.</extracomment>
        <translation>الحالة:</translation>
    </message>
    <message>
        <source>Status of the printer</source>
        <translation>حالة الطابعة</translation>
    </message>
    <message>
        <source>Description:</source>
        <extracomment>Followed by the description of the printer.</extracomment>
        <translation>الوصف:</translation>
    </message>
    <message>
        <source>Description of the printer</source>
        <translation>وصف الطابعة</translation>
    </message>
    <message>
        <source>Page Selection</source>
        <extracomment>The box around the choice of the pages to print.</extracomment>
        <translation>اختيار الصفحات</translation>
    </message>
    <message>
        <source>All pages</source>
        <translation>كل الصفحات</translation>
    </message>
    <message>
        <source>Even pages</source>
        <translation>الصفحات الزوجية</translation>
    </message>
    <message>
        <source>Odd pages</source>
        <translation>الصفحات الفردية</translation>
    </message>
    <message>
        <source>Some pages:</source>
        <extracomment>Followed by a field for page numbers.</extracomment>
        <translation>صفحات معيّنة:</translation>
    </message>
    <message>
        <source>Pages to print</source>
        <extracomment>Names the field for page numbers, for screen readers.</extracomment>
        <translation>الصفحات المراد طباعتها</translation>
    </message>
    <message>
        <source>Page numbers and groups of pages, separated by commas</source>
        <translation>أرقام صفحات ونطاقات صفحات تفصل بينها فواصل (,)</translation>
    </message>
    <message>
        <source>Enter page numbers and/or groups of pages to print separated by commas (1,2-5,10-12,17).</source>
        <extracomment>The example is what is typed: digits 0 to 9, hyphens and commas in every language.</extracomment>
        <translation>أدخل أرقام الصفحات و/أو نطاقات الصفحات المراد طباعتها مفصولة بفواصل (‎1,2-5,10-12,17‎).</translation>
    </message>
    <message>
        <source>Copies</source>
        <extracomment>The box around the number of copies and their order; also names the field of the number.</extracomment>
        <translation>النسخ</translation>
    </message>
    <message>
        <source>Copies [1~100]:</source>
        <extracomment>Number of copies, from 1 to 100.</extracomment>
        <translation>النسخ [من 1 إلى 100]:</translation>
    </message>
    <message>
        <source>Collate copies</source>
        <extracomment>Option: print the copies one after the other (1,2,3,1,2,3), not page by page (1,1,2,2,3,3).</extracomment>
        <translation>رتّب النسخ</translation>
    </message>
    <message>
        <source>Reverse All Pages (3,2,1)</source>
        <extracomment>Option: print the last page first.</extracomment>
        <translation>اعكس ترتيب كل الصفحات (3، 2، 1)</translation>
    </message>
    <message>
        <source>Order of the printed pages</source>
        <extracomment>Describes a picture that shows the order of the pages, for screen readers.</extracomment>
        <translation>ترتيب الصفحات المطبوعة</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;مساعدة</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;حسنًا</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>أ&amp;لغِ</translation>
    </message>
</context>
<context>
    <name>PrinterPropertiesDialog</name>
    <message>
        <source>LPR GUI: Options Conflict</source>
        <extracomment>Title of a message. Keep the name lpr.</extracomment>
        <translation>LPR GUI: تعارض الخيارات</translation>
    </message>
    <message>
        <source>Some options selected are in conflict.
Resolve those conflicts before continuing.
Hint: click Advanced on Device tab.
Conflicting options will be shown in red color.
</source>
        <extracomment>&quot;Advanced&quot; is the tab of that name.</extracomment>
        <translation>بعض الخيارات المحددة متعارضة.
حُلّ هذه التعارضات قبل المتابعة.
تلميح: انظر التبويب «متقدم».
ستظهر الخيارات المتعارضة باللون الأحمر.
</translation>
    </message>
    <message>
        <source>Options Not Saved</source>
        <translation>لم تُحفظ الخيارات</translation>
    </message>
    <message>
        <source>The options of &quot;%1&quot; could not be saved: the print server does not answer, or the file of the saved options cannot be written. The changes are listed below; they will not apply to what you print.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>تعذّر حفظ خيارات «‎%1‎»: إما أن خادم الطباعة لا يستجيب، أو لا يمكن الكتابة في ملف الخيارات المحفوظة. التغييرات مسرودة أدناه، ولن تسري على ما تطبعه.</translation>
    </message>
    <message>
        <source>Unknown Printer</source>
        <translation>طابعة غير معروفة</translation>
    </message>
    <message>
        <source>The print server no longer knows &quot;%1&quot;. Its options were saved on this computer for the case that it comes back.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>لم يعد خادم الطباعة يعرف «‎%1‎». حُفظت خياراتها على هذا الحاسوب تحسّبًا لعودتها.</translation>
    </message>
</context>
<context>
    <name>PrinterPropertiesDialogBase</name>
    <message>
        <source>&apos;%s&apos; Properties</source>
        <extracomment>Title of the window: the properties of the printer %s.</extracomment>
        <translation>خصائص «‎%s‎»</translation>
    </message>
    <message>
        <source>General</source>
        <extracomment>Tab: paper, orientation, duplex and the like.</extracomment>
        <translation>عام</translation>
    </message>
    <message>
        <source>Paper Options</source>
        <extracomment>Box: size and type of the paper.</extracomment>
        <translation>خيارات الورق</translation>
    </message>
    <message>
        <source>Paper Size:</source>
        <translation>مقاس الورق:</translation>
    </message>
    <message>
        <source>Paper Type:</source>
        <extracomment>What the paper is made of: plain, glossy, transparency ...</extracomment>
        <translation>نوع الورق:</translation>
    </message>
    <message>
        <source>Paper Orientation</source>
        <translation>اتجاه الورق</translation>
    </message>
    <message>
        <source>Portrait</source>
        <extracomment>Orientation of the page: upright. (Not a picture of a person.)</extracomment>
        <translation>طولي</translation>
    </message>
    <message>
        <source>Landscape</source>
        <extracomment>Orientation of the page: wide. (Not a picture of scenery.)</extracomment>
        <translation>عرضي</translation>
    </message>
    <message>
        <source>Reverse</source>
        <extracomment>Option of the orientation: the page turned upside down, by 180 degrees.</extracomment>
        <translation>معكوس</translation>
    </message>
    <message>
        <source>Orientation of the page</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>اتجاه الصفحة</translation>
    </message>
    <message>
        <source>Double-Sided Printing</source>
        <translation>الطباعة على الوجهين</translation>
    </message>
    <message>
        <source>Off</source>
        <extracomment>Double-sided printing is off: printed on one side only.</extracomment>
        <translation>معطّلة</translation>
    </message>
    <message>
        <source>Long Edge [Book]</source>
        <extracomment>Double-sided, pages turned along the long edge of the sheet as in a book.</extracomment>
        <translation>الحافة الطويلة [كتاب]</translation>
    </message>
    <message>
        <source>Short Edge [Tablet]</source>
        <extracomment>Double-sided, pages turned along the short edge of the sheet as on a notepad.</extracomment>
        <translation>الحافة القصيرة [مفكرة]</translation>
    </message>
    <message>
        <source>How both sides of a sheet are printed</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>كيفية الطباعة على وجهي الورقة</translation>
    </message>
    <message>
        <source>Pages per Side [N-Up]</source>
        <extracomment>How many pages are put, smaller, on one side of a sheet.</extracomment>
        <translation>عدد الصفحات في كل وجه</translation>
    </message>
    <message>
        <source>Normal (1-Up)</source>
        <extracomment>One page on each side of a sheet.</extracomment>
        <translation>عادي (صفحة واحدة)</translation>
    </message>
    <message>
        <source>2-Up</source>
        <extracomment>Two pages on each side of a sheet.</extracomment>
        <translation>صفحتان</translation>
    </message>
    <message>
        <source>4-Up</source>
        <extracomment>Four pages on each side of a sheet.</extracomment>
        <translation>أربع صفحات</translation>
    </message>
    <message>
        <source>Pages on one side of a sheet</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>الصفحات على وجه واحد من الورقة</translation>
    </message>
    <message>
        <source>Banners</source>
        <extracomment>Box: cover sheets that say whose job it is, before and after the job.</extracomment>
        <translation>صفحات الغلاف</translation>
    </message>
    <message>
        <source>Start:</source>
        <extracomment>A noun: the cover sheet before the job.</extracomment>
        <translation>البداية:</translation>
    </message>
    <message>
        <source>Banner before the job</source>
        <translation>صفحة الغلاف قبل المهمة</translation>
    </message>
    <message>
        <source>End:</source>
        <extracomment>A noun: the cover sheet after the job.</extracomment>
        <translation>النهاية:</translation>
    </message>
    <message>
        <source>Banner after the job</source>
        <translation>صفحة الغلاف بعد المهمة</translation>
    </message>
    <message>
        <source>Text</source>
        <extracomment>Tab: options of text files.</extracomment>
        <translation>نص</translation>
    </message>
    <message>
        <source>The following options apply only when printing text files.</source>
        <translation>تسري الخيارات التالية على طباعة الملفات النصية فقط.</translation>
    </message>
    <message>
        <source>Margins</source>
        <translation>الهوامش</translation>
    </message>
    <message>
        <source>Use device default margins</source>
        <translation>استخدم هوامش الجهاز الافتراضية</translation>
    </message>
    <message>
        <source>Units:</source>
        <extracomment>Units of length, followed by the choice: points, 1/10 inches, mm.</extracomment>
        <translation>الوحدة:</translation>
    </message>
    <message>
        <source>Left:</source>
        <extracomment>Margin at the left.</extracomment>
        <translation>الأيسر:</translation>
    </message>
    <message>
        <source>Left margin</source>
        <translation>الهامش الأيسر</translation>
    </message>
    <message>
        <source>Right:</source>
        <extracomment>Margin at the right.</extracomment>
        <translation>الأيمن:</translation>
    </message>
    <message>
        <source>Right margin</source>
        <translation>الهامش الأيمن</translation>
    </message>
    <message>
        <source>Top:</source>
        <extracomment>Margin at the top.</extracomment>
        <translation>العلوي:</translation>
    </message>
    <message>
        <source>Top margin</source>
        <translation>الهامش العلوي</translation>
    </message>
    <message>
        <source>Bottom:</source>
        <extracomment>Margin at the bottom.</extracomment>
        <translation>السفلي:</translation>
    </message>
    <message>
        <source>Bottom margin</source>
        <translation>الهامش السفلي</translation>
    </message>
    <message>
        <source>Plain Text Options</source>
        <extracomment>Options of text files without formatting.</extracomment>
        <translation>خيارات النص العادي</translation>
    </message>
    <message>
        <source>Spacing</source>
        <extracomment>Box: characters and lines per inch.</extracomment>
        <translation>التباعد</translation>
    </message>
    <message>
        <source>Characters per inch:</source>
        <translation>المحارف في البوصة:</translation>
    </message>
    <message>
        <source>Lines per inch:</source>
        <translation>الأسطر في البوصة:</translation>
    </message>
    <message>
        <source>Columns</source>
        <extracomment>Box: into how many columns the text of a page is set.</extracomment>
        <translation>الأعمدة</translation>
    </message>
    <message>
        <source>Columns:</source>
        <extracomment>Number of columns of text on a page.</extracomment>
        <translation>الأعمدة:</translation>
    </message>
    <message>
        <source>Columns of text on the page</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>أعمدة النص في الصفحة</translation>
    </message>
    <message>
        <source>Page Decoration</source>
        <extracomment>Box: what is added to printed text.</extracomment>
        <translation>تزيين الصفحة</translation>
    </message>
    <message>
        <source>Pretty printing</source>
        <extracomment>Option: a header on each page, keywords of programming languages in bold.</extracomment>
        <translation>طباعة منسّقة</translation>
    </message>
    <message>
        <source>Look of the printed text</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>مظهر النص المطبوع</translation>
    </message>
    <message>
        <source>Graphics</source>
        <extracomment>Tab: options of image files.</extracomment>
        <translation>رسوميات</translation>
    </message>
    <message>
        <source>The following options apply only when printing image files.</source>
        <translation>تسري الخيارات التالية على طباعة ملفات الصور فقط.</translation>
    </message>
    <message>
        <source>Color Adjustments</source>
        <translation>ضبط الألوان</translation>
    </message>
    <message>
        <source>Use default color settings</source>
        <translation>استخدم إعدادات الألوان الافتراضية</translation>
    </message>
    <message>
        <source>Brightness:</source>
        <translation>السطوع:</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>السطوع</translation>
    </message>
    <message>
        <source>Gamma:</source>
        <extracomment>Gamma correction of an image.</extracomment>
        <translation>غاما:</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>غاما</translation>
    </message>
    <message>
        <source>Hue:</source>
        <extracomment>Turn of an image&apos;s colors around the color circle.</extracomment>
        <translation>درجة اللون:</translation>
    </message>
    <message>
        <source>Hue</source>
        <translation>درجة اللون</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <extracomment>Strength of an image&apos;s colors.</extracomment>
        <translation>التشبع:</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>التشبع</translation>
    </message>
    <message>
        <source>Sample image with these colors</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>صورة نموذجية بهذه الألوان</translation>
    </message>
    <message>
        <source>Image Size</source>
        <translation>حجم الصورة</translation>
    </message>
    <message>
        <source>Use specific resolution</source>
        <extracomment>One of two ways to say how large an image is printed: pixels per inch.</extracomment>
        <translation>استخدم دقة معيّنة</translation>
    </message>
    <message>
        <source>Resolution</source>
        <extracomment>Names the field of the resolution in pixels per inch, for screen readers.</extracomment>
        <translation>الدقة</translation>
    </message>
    <message>
        <source>ppi</source>
        <extracomment>Unit behind a number: pixels per inch.</extracomment>
        <translation>بكسل/بوصة</translation>
    </message>
    <message>
        <source>Use scaling</source>
        <extracomment>One of two ways to say how large an image is printed: percent.</extracomment>
        <translation>استخدم التحجيم</translation>
    </message>
    <message>
        <source>Scaling</source>
        <extracomment>Names the field of the size in percent of the page, for screen readers.</extracomment>
        <translation>التحجيم</translation>
    </message>
    <message>
        <source>%</source>
        <extracomment>Unit behind a number: percent of the page.</extracomment>
        <translation>%</translation>
    </message>
    <message>
        <source>Fit to Page</source>
        <extracomment>Button: makes the image as large as the page.</extracomment>
        <translation>لائم الصفحة</translation>
    </message>
    <message>
        <source>Image Position</source>
        <extracomment>Box: where an image is printed on the page.</extracomment>
        <translation>موضع الصورة</translation>
    </message>
    <message>
        <source>Position of the image on the page</source>
        <translation>موضع الصورة على الصفحة</translation>
    </message>
    <message>
        <source>Vertical position</source>
        <translation>الموضع الرأسي</translation>
    </message>
    <message>
        <source>Horizontal position</source>
        <translation>الموضع الأفقي</translation>
    </message>
    <message>
        <source>Advanced</source>
        <extracomment>Tab: all options of the printer&apos;s driver.</extracomment>
        <translation>متقدم</translation>
    </message>
    <message>
        <source>Driver options</source>
        <extracomment>Names the tree of the printer&apos;s options, for screen readers.</extracomment>
        <translation>خيارات المشغّل</translation>
    </message>
    <message>
        <source>This printer has no driver with options of its own.</source>
        <translation>ليس لهذه الطابعة مشغّل له خيارات خاصة به.</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;مساعدة</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;طبّق</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;حسنًا</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>أ&amp;لغِ</translation>
    </message>
</context>
</TS>
