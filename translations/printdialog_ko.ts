<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko" sourcelanguage="en">
<context>
    <name>LengthUnits</name>
    <message>
        <source>points</source>
        <extracomment>Unit of the margins: 1/72 inch.</extracomment>
        <translation>포인트</translation>
    </message>
    <message>
        <source>1/10 inches</source>
        <extracomment>Unit of the margins: tenths of an inch.</extracomment>
        <translation>1/10인치</translation>
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
        <translation>%1(설정 해제)</translation>
    </message>
</context>
<context>
    <name>PrintDialog</name>
    <message>
        <source>This version has no properties dialog.</source>
        <translation>이 버전에는 속성 대화 상자가 없습니다.</translation>
    </message>
    <message>
        <source>Error!</source>
        <extracomment>Title of a message: something could not be done.</extracomment>
        <translation>오류</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be made the default.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>“%1”을(를) 기본 프린터로 설정할 수 없습니다.</translation>
    </message>
    <message>
        <source>Warning!</source>
        <extracomment>Title of a message: what is asked for cannot be done now.</extracomment>
        <translation>경고</translation>
    </message>
    <message>
        <source>You can&apos;t print anything while printer is stopped. Please, start the selected printer.</source>
        <translation>프린터가 중지된 동안에는 인쇄할 수 없습니다. 선택한 프린터를 시작하십시오.</translation>
    </message>
    <message>
        <source>Invalid page ranges &quot;%1&quot;
Error at position %1: invalid range value &quot;%1&quot;</source>
        <extracomment>Number the placeholders in a translation: %1 is all that was typed, %2 the position of the error in it, %3 what stands there.</extracomment>
        <translation>페이지 범위 “%1”이(가) 잘못되었습니다.
위치 %2에서 오류 발생: 범위 값 “%3”이(가) 잘못되었습니다.</translation>
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
        <translation>프린터</translation>
    </message>
    <message>
        <source>The printer or class of printers that the job is sent to</source>
        <translation>작업을 보낼 프린터 또는 프린터 클래스</translation>
    </message>
    <message>
        <source>Set as User Default</source>
        <extracomment>Button, with little room: makes the chosen printer the default of this user (not of the whole system).</extracomment>
        <translation>사용자 기본 프린터로 설정</translation>
    </message>
    <message>
        <source>Makes this printer the one that you print to when you choose none</source>
        <translation>프린터를 선택하지 않으면 이 프린터로 인쇄하도록 설정합니다</translation>
    </message>
    <message>
        <source>Properties...</source>
        <extracomment>Button: opens the window with all options of the printer.</extracomment>
        <translation>속성...</translation>
    </message>
    <message>
        <source>Shows all options of this printer</source>
        <translation>이 프린터의 모든 옵션을 표시합니다</translation>
    </message>
    <message>
        <source>Picture of the printer</source>
        <translation>프린터 그림</translation>
    </message>
    <message>
        <source>Start</source>
        <extracomment>Button, with little room: a verb. Puts the stopped printer into operation again.</extracomment>
        <translation>시작</translation>
    </message>
    <message>
        <source>Starts this printer when it is stopped or rejects jobs</source>
        <translation>프린터가 중지되었거나 작업을 거부할 때 프린터를 시작합니다</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>위치:</translation>
    </message>
    <message>
        <source>Location of the printer</source>
        <translation>프린터 위치</translation>
    </message>
    <message>
        <source>unknown</source>
        <extracomment>Where a printer stands, what state it is in or how it is described: not known.</extracomment>
        <translation>알 수 없음</translation>
    </message>
    <message>
        <source>Status:</source>
        <extracomment>Followed by the state of the printer, for instance: idle, accepting jobs.</extracomment>
        <translation>상태:</translation>
    </message>
    <message>
        <source>Status of the printer</source>
        <translation>프린터 상태</translation>
    </message>
    <message>
        <source>Description:</source>
        <extracomment>Followed by the description of the printer.</extracomment>
        <translation>설명:</translation>
    </message>
    <message>
        <source>Description of the printer</source>
        <translation>프린터 설명</translation>
    </message>
    <message>
        <source>Page Selection</source>
        <extracomment>The box around the choice of the pages to print.</extracomment>
        <translation>페이지 선택</translation>
    </message>
    <message>
        <source>All pages</source>
        <translation>모든 페이지</translation>
    </message>
    <message>
        <source>Even pages</source>
        <translation>짝수 페이지</translation>
    </message>
    <message>
        <source>Odd pages</source>
        <translation>홀수 페이지</translation>
    </message>
    <message>
        <source>Some pages:</source>
        <extracomment>Followed by a field for page numbers.</extracomment>
        <translation>페이지 지정:</translation>
    </message>
    <message>
        <source>Pages to print</source>
        <extracomment>Names the field for page numbers, for screen readers.</extracomment>
        <translation>인쇄할 페이지</translation>
    </message>
    <message>
        <source>Page numbers and groups of pages, separated by commas</source>
        <translation>쉼표로 구분한 페이지 번호와 페이지 범위</translation>
    </message>
    <message>
        <source>Enter page numbers and/or groups of pages to print separated by commas (1,2-5,10-12,17).</source>
        <extracomment>The example is what is typed: digits 0 to 9, hyphens and commas in every language.</extracomment>
        <translation>인쇄할 페이지 번호나 페이지 범위를 쉼표로 구분하여 입력하십시오(1,2-5,10-12,17).</translation>
    </message>
    <message>
        <source>Copies</source>
        <extracomment>The box around the number of copies and their order; also names the field of the number.</extracomment>
        <translation>부수</translation>
    </message>
    <message>
        <source>Copies [1~100]:</source>
        <extracomment>Number of copies, from 1 to 100.</extracomment>
        <translation>부수 [1~100]:</translation>
    </message>
    <message>
        <source>Collate copies</source>
        <extracomment>Option: print the copies one after the other (1,2,3,1,2,3), not page by page (1,1,2,2,3,3).</extracomment>
        <translation>한 부씩 인쇄</translation>
    </message>
    <message>
        <source>Reverse All Pages (3,2,1)</source>
        <extracomment>Option: print the last page first.</extracomment>
        <translation>모든 페이지를 역순으로 인쇄(3,2,1)</translation>
    </message>
    <message>
        <source>Order of the printed pages</source>
        <extracomment>Describes a picture that shows the order of the pages, for screen readers.</extracomment>
        <translation>인쇄되는 페이지 순서</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>도움말(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>확인(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>취소(&amp;C)</translation>
    </message>
</context>
<context>
    <name>PrinterPropertiesDialog</name>
    <message>
        <source>LPR GUI: Options Conflict</source>
        <extracomment>Title of a message. Keep the name lpr.</extracomment>
        <translation>LPR GUI: 옵션 충돌</translation>
    </message>
    <message>
        <source>Some options selected are in conflict.
Resolve those conflicts before continuing.
Hint: click Advanced on Device tab.
Conflicting options will be shown in red color.
</source>
        <extracomment>&quot;Advanced&quot; is the tab of that name.</extracomment>
        <translation>선택한 옵션 중 일부가 충돌합니다.
계속하기 전에 충돌을 해결하십시오.
힌트: “고급” 탭을 확인하십시오.
충돌하는 옵션은 빨간색으로 표시됩니다.
</translation>
    </message>
    <message>
        <source>Options Not Saved</source>
        <translation>옵션 저장 안 됨</translation>
    </message>
    <message>
        <source>The options of &quot;%1&quot; could not be saved: the print server does not answer, or the file of the saved options cannot be written. The changes are listed below; they will not apply to what you print.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>“%1”의 옵션을 저장할 수 없습니다. 인쇄 서버가 응답하지 않거나 옵션을 저장하는 파일에 쓸 수 없습니다. 변경 내용은 아래와 같으며, 인쇄할 때 적용되지 않습니다.</translation>
    </message>
    <message>
        <source>Unknown Printer</source>
        <translation>알 수 없는 프린터</translation>
    </message>
    <message>
        <source>The print server no longer knows &quot;%1&quot;. Its options were saved on this computer for the case that it comes back.</source>
        <extracomment>%1 is the name of a printer.</extracomment>
        <translation>인쇄 서버에서 더 이상 “%1”을(를) 찾을 수 없습니다. 다시 사용할 수 있게 될 경우에 대비하여 옵션을 이 컴퓨터에 저장했습니다.</translation>
    </message>
</context>
<context>
    <name>PrinterPropertiesDialogBase</name>
    <message>
        <source>&apos;%s&apos; Properties</source>
        <extracomment>Title of the window: the properties of the printer %s.</extracomment>
        <translation>“%s” 속성</translation>
    </message>
    <message>
        <source>General</source>
        <extracomment>Tab: paper, orientation, duplex and the like.</extracomment>
        <translation>일반</translation>
    </message>
    <message>
        <source>Paper Options</source>
        <extracomment>Box: size and type of the paper.</extracomment>
        <translation>용지 옵션</translation>
    </message>
    <message>
        <source>Paper Size:</source>
        <translation>용지 크기:</translation>
    </message>
    <message>
        <source>Paper Type:</source>
        <extracomment>What the paper is made of: plain, glossy, transparency ...</extracomment>
        <translation>용지 종류:</translation>
    </message>
    <message>
        <source>Paper Orientation</source>
        <translation>용지 방향</translation>
    </message>
    <message>
        <source>Portrait</source>
        <extracomment>Orientation of the page: upright. (Not a picture of a person.)</extracomment>
        <translation>세로</translation>
    </message>
    <message>
        <source>Landscape</source>
        <extracomment>Orientation of the page: wide. (Not a picture of scenery.)</extracomment>
        <translation>가로</translation>
    </message>
    <message>
        <source>Reverse</source>
        <extracomment>Option of the orientation: the page turned upside down, by 180 degrees.</extracomment>
        <translation>180도 회전</translation>
    </message>
    <message>
        <source>Orientation of the page</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>페이지 방향</translation>
    </message>
    <message>
        <source>Double-Sided Printing</source>
        <translation>양면 인쇄</translation>
    </message>
    <message>
        <source>Off</source>
        <extracomment>Double-sided printing is off: printed on one side only.</extracomment>
        <translation>끔</translation>
    </message>
    <message>
        <source>Long Edge [Book]</source>
        <extracomment>Double-sided, pages turned along the long edge of the sheet as in a book.</extracomment>
        <translation>긴 쪽으로 제본 [책]</translation>
    </message>
    <message>
        <source>Short Edge [Tablet]</source>
        <extracomment>Double-sided, pages turned along the short edge of the sheet as on a notepad.</extracomment>
        <translation>짧은 쪽으로 제본 [메모장]</translation>
    </message>
    <message>
        <source>How both sides of a sheet are printed</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>용지 양면에 인쇄하는 방식</translation>
    </message>
    <message>
        <source>Pages per Side [N-Up]</source>
        <extracomment>How many pages are put, smaller, on one side of a sheet.</extracomment>
        <translation>면당 페이지 수 [모아찍기]</translation>
    </message>
    <message>
        <source>Normal (1-Up)</source>
        <extracomment>One page on each side of a sheet.</extracomment>
        <translation>기본(1페이지)</translation>
    </message>
    <message>
        <source>2-Up</source>
        <extracomment>Two pages on each side of a sheet.</extracomment>
        <translation>2페이지</translation>
    </message>
    <message>
        <source>4-Up</source>
        <extracomment>Four pages on each side of a sheet.</extracomment>
        <translation>4페이지</translation>
    </message>
    <message>
        <source>Pages on one side of a sheet</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>용지 한 면에 인쇄되는 페이지</translation>
    </message>
    <message>
        <source>Banners</source>
        <extracomment>Box: cover sheets that say whose job it is, before and after the job.</extracomment>
        <translation>배너 페이지</translation>
    </message>
    <message>
        <source>Start:</source>
        <extracomment>A noun: the cover sheet before the job.</extracomment>
        <translation>시작:</translation>
    </message>
    <message>
        <source>Banner before the job</source>
        <translation>작업 앞의 배너 페이지</translation>
    </message>
    <message>
        <source>End:</source>
        <extracomment>A noun: the cover sheet after the job.</extracomment>
        <translation>끝:</translation>
    </message>
    <message>
        <source>Banner after the job</source>
        <translation>작업 뒤의 배너 페이지</translation>
    </message>
    <message>
        <source>Text</source>
        <extracomment>Tab: options of text files.</extracomment>
        <translation>텍스트</translation>
    </message>
    <message>
        <source>The following options apply only when printing text files.</source>
        <translation>다음 옵션은 텍스트 파일을 인쇄할 때만 적용됩니다.</translation>
    </message>
    <message>
        <source>Margins</source>
        <translation>여백</translation>
    </message>
    <message>
        <source>Use device default margins</source>
        <translation>장치 기본 여백 사용</translation>
    </message>
    <message>
        <source>Units:</source>
        <extracomment>Units of length, followed by the choice: points, 1/10 inches, mm.</extracomment>
        <translation>단위:</translation>
    </message>
    <message>
        <source>Left:</source>
        <extracomment>Margin at the left.</extracomment>
        <translation>왼쪽:</translation>
    </message>
    <message>
        <source>Left margin</source>
        <translation>왼쪽 여백</translation>
    </message>
    <message>
        <source>Right:</source>
        <extracomment>Margin at the right.</extracomment>
        <translation>오른쪽:</translation>
    </message>
    <message>
        <source>Right margin</source>
        <translation>오른쪽 여백</translation>
    </message>
    <message>
        <source>Top:</source>
        <extracomment>Margin at the top.</extracomment>
        <translation>위쪽:</translation>
    </message>
    <message>
        <source>Top margin</source>
        <translation>위쪽 여백</translation>
    </message>
    <message>
        <source>Bottom:</source>
        <extracomment>Margin at the bottom.</extracomment>
        <translation>아래쪽:</translation>
    </message>
    <message>
        <source>Bottom margin</source>
        <translation>아래쪽 여백</translation>
    </message>
    <message>
        <source>Plain Text Options</source>
        <extracomment>Options of text files without formatting.</extracomment>
        <translation>일반 텍스트 옵션</translation>
    </message>
    <message>
        <source>Spacing</source>
        <extracomment>Box: characters and lines per inch.</extracomment>
        <translation>간격</translation>
    </message>
    <message>
        <source>Characters per inch:</source>
        <translation>인치당 문자 수:</translation>
    </message>
    <message>
        <source>Lines per inch:</source>
        <translation>인치당 줄 수:</translation>
    </message>
    <message>
        <source>Columns</source>
        <extracomment>Box: into how many columns the text of a page is set.</extracomment>
        <translation>다단</translation>
    </message>
    <message>
        <source>Columns:</source>
        <extracomment>Number of columns of text on a page.</extracomment>
        <translation>단 수:</translation>
    </message>
    <message>
        <source>Columns of text on the page</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>페이지의 텍스트 다단 배치</translation>
    </message>
    <message>
        <source>Page Decoration</source>
        <extracomment>Box: what is added to printed text.</extracomment>
        <translation>페이지 장식</translation>
    </message>
    <message>
        <source>Pretty printing</source>
        <extracomment>Option: a header on each page, keywords of programming languages in bold.</extracomment>
        <translation>보기 좋게 인쇄</translation>
    </message>
    <message>
        <source>Look of the printed text</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>인쇄되는 텍스트의 모양</translation>
    </message>
    <message>
        <source>Graphics</source>
        <extracomment>Tab: options of image files.</extracomment>
        <translation>이미지</translation>
    </message>
    <message>
        <source>The following options apply only when printing image files.</source>
        <translation>다음 옵션은 이미지 파일을 인쇄할 때만 적용됩니다.</translation>
    </message>
    <message>
        <source>Color Adjustments</source>
        <translation>색상 조정</translation>
    </message>
    <message>
        <source>Use default color settings</source>
        <translation>기본 색상 설정 사용</translation>
    </message>
    <message>
        <source>Brightness:</source>
        <translation>밝기:</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>밝기</translation>
    </message>
    <message>
        <source>Gamma:</source>
        <extracomment>Gamma correction of an image.</extracomment>
        <translation>감마:</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>감마</translation>
    </message>
    <message>
        <source>Hue:</source>
        <extracomment>Turn of an image&apos;s colors around the color circle.</extracomment>
        <translation>색조:</translation>
    </message>
    <message>
        <source>Hue</source>
        <translation>색조</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <extracomment>Strength of an image&apos;s colors.</extracomment>
        <translation>채도:</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>채도</translation>
    </message>
    <message>
        <source>Sample image with these colors</source>
        <extracomment>Describes a picture, for screen readers.</extracomment>
        <translation>이 색상 설정을 적용한 견본 이미지</translation>
    </message>
    <message>
        <source>Image Size</source>
        <translation>이미지 크기</translation>
    </message>
    <message>
        <source>Use specific resolution</source>
        <extracomment>One of two ways to say how large an image is printed: pixels per inch.</extracomment>
        <translation>해상도 지정</translation>
    </message>
    <message>
        <source>Resolution</source>
        <extracomment>Names the field of the resolution in pixels per inch, for screen readers.</extracomment>
        <translation>해상도</translation>
    </message>
    <message>
        <source>ppi</source>
        <extracomment>Unit behind a number: pixels per inch.</extracomment>
        <translation>ppi</translation>
    </message>
    <message>
        <source>Use scaling</source>
        <extracomment>One of two ways to say how large an image is printed: percent.</extracomment>
        <translation>배율 지정</translation>
    </message>
    <message>
        <source>Scaling</source>
        <extracomment>Names the field of the size in percent of the page, for screen readers.</extracomment>
        <translation>배율</translation>
    </message>
    <message>
        <source>%</source>
        <extracomment>Unit behind a number: percent of the page.</extracomment>
        <translation>%</translation>
    </message>
    <message>
        <source>Fit to Page</source>
        <extracomment>Button: makes the image as large as the page.</extracomment>
        <translation>페이지에 맞춤</translation>
    </message>
    <message>
        <source>Image Position</source>
        <extracomment>Box: where an image is printed on the page.</extracomment>
        <translation>이미지 위치</translation>
    </message>
    <message>
        <source>Position of the image on the page</source>
        <translation>페이지에서 이미지의 위치</translation>
    </message>
    <message>
        <source>Vertical position</source>
        <translation>세로 위치</translation>
    </message>
    <message>
        <source>Horizontal position</source>
        <translation>가로 위치</translation>
    </message>
    <message>
        <source>Advanced</source>
        <extracomment>Tab: all options of the printer&apos;s driver.</extracomment>
        <translation>고급</translation>
    </message>
    <message>
        <source>Driver options</source>
        <extracomment>Names the tree of the printer&apos;s options, for screen readers.</extracomment>
        <translation>드라이버 옵션</translation>
    </message>
    <message>
        <source>This printer has no driver with options of its own.</source>
        <translation>이 프린터에는 자체 옵션이 있는 드라이버가 없습니다.</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>도움말(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>적용(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>확인(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>취소(&amp;C)</translation>
    </message>
</context>
</TS>
