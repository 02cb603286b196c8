<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="it">
<context>
    <name>Texts</name>
    <message>
        <source>Errore: </source>
        <translation>Error: </translation>
    </message>
    <message>
        <source>&quot;%1&quot; non è un numero</source>
        <translation>&quot;%1&quot; is not a number</translation>
    </message>
    <message>
        <source>... e altri %1</source>
        <translation>... and %1 more</translation>
    </message>
    <message>
        <source>Il nome di file &quot;%1&quot; è troppo corto</source>
        <translation>The file name &quot;%1&quot; is too short</translation>
    </message>
    <message>
        <source>Operazione interrotta</source>
        <translation>Stopped on request</translation>
    </message>
    <message>
        <source>Impossibile leggere il file %1: %2</source>
        <translation>The file %1 cannot be read: %2</translation>
    </message>
    <message>
        <source>ne è stata scritta solo una parte</source>
        <translation>only a part of it was written</translation>
    </message>
    <message>
        <source>Impossibile scrivere %1: il disco è pieno, o non accetta file così grandi. Liberare spazio o scegliere un altro disco, e riprovare.</source>
        <translation>%1 cannot be written: the disk is full, or takes no file of this size. Free some space or choose another disk, and try again.</translation>
    </message>
    <message>
        <source>Impossibile scrivere %1: il disco è pieno. Liberare spazio e riprovare.</source>
        <translation>%1 cannot be written: the disk is full. Free some space and try again.</translation>
    </message>
    <message>
        <source>Impossibile scrivere il file %1: %2</source>
        <translation>The file %1 cannot be written: %2</translation>
    </message>
    <message>
        <source>Impossibile creare la cartella %1</source>
        <translation>The folder %1 cannot be created</translation>
    </message>
    <message>
        <source>non è un file</source>
        <translation>it is no file</translation>
    </message>
    <message>
        <source>un altro programma le sta salvando. Riprovare.</source>
        <translation>another program is saving them. Try again.</translation>
    </message>
    <message>
        <source>il file non può essere letto. Controllarne i permessi.</source>
        <translation>the file cannot be read. Check its permissions.</translation>
    </message>
    <message>
        <source>Impossibile salvare le impostazioni in %1: %2</source>
        <translation>The settings cannot be saved in %1: %2</translation>
    </message>
    <message>
        <source>&amp;Sì</source>
        <translation>&amp;Yes</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Opzione sconosciuta: %1</source>
        <translation>Unknown option: %1</translation>
    </message>
    <message>
        <source>L&apos;opzione %1 compare due volte</source>
        <translation>The option %1 is given twice</translation>
    </message>
    <message>
        <source>Manca il valore dopo %1</source>
        <translation>The value after %1 is missing</translation>
    </message>
    <message>
        <source>--catalog vuole il numero di un catalogo, non &quot;%1&quot;. Il comando &quot;catalogs&quot; li elenca.</source>
        <translation>--catalog takes the number of a catalog, not &quot;%1&quot;. The command &quot;catalogs&quot; lists them.</translation>
    </message>
    <message>
        <source>Comando sconosciuto: %1</source>
        <translation>Unknown command: %1</translation>
    </message>
    <message>
        <source>Il comando %1 vuole l&apos;opzione %2</source>
        <translation>The command %1 needs the option %2</translation>
    </message>
    <message>
        <source>Il comando %1 non ha l&apos;opzione %2</source>
        <translation>The command %1 has no option %2</translation>
    </message>
    <message>
        <source>Il comando %1 vuole un nome di file</source>
        <translation>The command %1 takes one file name</translation>
    </message>
    <message>
        <source>Il comando %1 vuole una cartella</source>
        <translation>The command %1 takes one folder</translation>
    </message>
    <message>
        <source>Di troppo: %1</source>
        <translation>Too much: %1</translation>
    </message>
    <message>
        <source>Manca il comando</source>
        <translation>The command is missing</translation>
    </message>
    <message>
        <source>La lingua è Italian o English</source>
        <translation>The language is Italian or English</translation>
    </message>
    <message>
        <source>Copia di </source>
        <translation>Copy of </translation>
    </message>
    <message>
        <source>Il catalogo %1 è duplicato nel catalogo %2</source>
        <translation>Catalog %1 is cloned as catalog %2</translation>
    </message>
    <message>
        <source>Il catalogo %1 è eliminato</source>
        <translation>Catalog %1 is deleted</translation>
    </message>
    <message>
        <source>Numero</source>
        <translation>Number</translation>
    </message>
    <message>
        <source>Nome</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Prodotti</source>
        <translation>Products</translation>
    </message>
    <message>
        <source>Pubblicati</source>
        <translation>Published</translation>
    </message>
    <message>
        <source>DANNO</source>
        <translation>DAMAGE</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>  e altri %1; --json li elenca tutti</source>
        <translation>  and %1 more; --json lists them all</translation>
    </message>
    <message>
        <source>Tutto in ordine</source>
        <translation>Everything is in order</translation>
    </message>
    <message>
        <source>Danni trovati: %1</source>
        <translation>Damage found: %1</translation>
    </message>
    <message>
        <source>La cartella %1 non esiste</source>
        <translation>The folder %1 does not exist</translation>
    </message>
    <message>
        <source>Il catalogo %1 non esiste. Il comando &quot;catalogs&quot; elenca quelli che ci sono.</source>
        <translation>There is no catalog %1. The command &quot;catalogs&quot; lists those that there are.</translation>
    </message>
    <message>
        <source>Qui non si può rispondere: %1</source>
        <translation>This cannot be answered here: %1</translation>
    </message>
    <message>
        <source>Importato 1 prodotto</source>
        <translation>Imported 1 product</translation>
    </message>
    <message>
        <source>Importati %1 prodotti</source>
        <translation>Imported %1 products</translation>
    </message>
    <message>
        <source>Nessuna immagine &apos;jpg&apos; nella cartella selezionata</source>
        <translation>No&apos;jpg&apos; images in the selected folder</translation>
    </message>
    <message>
        <source>sì</source>
        <translation>yes</translation>
    </message>
    <message>
        <source>Identificatore</source>
        <translation>Identifier</translation>
    </message>
    <message>
        <source>Con publish</source>
        <translation>With publish</translation>
    </message>
    <message>
        <source>Il plug-in %1 non pubblica senza finestre. Pubblicare il catalogo dal programma Vorlina.</source>
        <translation>The plug-in %1 does not publish without windows. Publish the catalog from the program Vorlina.</translation>
    </message>
    <message>
        <source>Il catalogo %1 è pubblicato in %2</source>
        <translation>Catalog %1 is published in %2</translation>
    </message>
    <message>
        <source>Salvati in %1 e verificati: %2 file, %3</source>
        <translation>Saved in %1 and verified: %2 files, %3</translation>
    </message>
    <message>
        <source>Mancano nella copia di sicurezza (%1):</source>
        <translation>Missing from the backup (%1):</translation>
    </message>
    <message>
        <source>Fuori dalla cartella &quot;Images&quot;, e quindi non nella copia di sicurezza (%1):</source>
        <translation>Outside of the folder &quot;Images&quot;, and so not in the backup (%1):</translation>
    </message>
    <message>
        <source>Rimetterle al loro posto, o aggiungere --allow-missing per salvare il resto.</source>
        <translation>Put them back, or add --allow-missing to save the rest.</translation>
    </message>
    <message>
        <source>Ripristinati da %1: %2 file, %3</source>
        <translation>Restored from %1: %2 files, %3</translation>
    </message>
    <message>
        <source>Quel che c&apos;era prima resta in %1 fino al prossimo ripristino.</source>
        <translation>What was there before stays in %1 until the next restore.</translation>
    </message>
    <message>
        <source>La copia di sicurezza non è leggibile così come è stata scritta</source>
        <translation>The backup does not read as it was written</translation>
    </message>
    <message>
        <source>La copia di sicurezza %1 non è integra: il contenuto non è quello del suo elenco</source>
        <translation>The backup %1 is not whole: its content is not what its list says</translation>
    </message>
    <message>
        <source>&quot;%1&quot; non appartiene a una copia di sicurezza di Vorlina</source>
        <translation>&quot;%1&quot; does not belong into a backup of Vorlina</translation>
    </message>
    <message>
        <source>L&apos;archivio non è una copia di sicurezza di Vorlina</source>
        <translation>The archive is no backup of Vorlina</translation>
    </message>
    <message>
        <source>La copia di sicurezza è stata creata da una versione più recente di Vorlina</source>
        <translation>The backup was made by a newer version of Vorlina</translation>
    </message>
    <message>
        <source>Un altro programma sta modificando le immagini. Attendere che finisca e riprovare.</source>
        <translation>Another program is changing the pictures. Wait until it has finished and try again.</translation>
    </message>
    <message>
        <source>%1 esiste e non è una copia di sicurezza. Scegliere un altro nome.</source>
        <translation>%1 exists and is no backup. Choose another name.</translation>
    </message>
    <message>
        <source>La copia di sicurezza non può stare in %1. Scegliere un&apos;altra cartella.</source>
        <translation>The backup cannot lie in %1. Choose another folder.</translation>
    </message>
    <message>
        <source>  e altri %1</source>
        <translation>  and %1 more</translation>
    </message>
    <message>
        <source>La copia di sicurezza non è stata fatta, e quella di prima è rimasta com&apos;era: mancano immagini, o non possono essere lette (%1).</source>
        <translation>No backup was made, and a former one is as it was: pictures are missing, or cannot be read (%1).</translation>
    </message>
    <message>
        <source>Database danneggiato</source>
        <translation>Damage in the database</translation>
    </message>
    <message>
        <source>Immagini che mancano</source>
        <translation>Pictures that are missing</translation>
    </message>
    <message>
        <source>Prodotti con un valore di filtro che non esiste</source>
        <translation>Products with a filter value that does not exist</translation>
    </message>
    <message>
        <source>Miniature che mancano</source>
        <translation>Thumbnails that are missing</translation>
    </message>
    <message>
        <source>Immagini fuori dalla cartella &quot;Images&quot;</source>
        <translation>Pictures outside of the folder &quot;Images&quot;</translation>
    </message>
    <message>
        <source>File in &quot;Images&quot; che nessuna riga usa</source>
        <translation>Files in &quot;Images&quot; that no row uses</translation>
    </message>
    <message>
        <source>File temporanei rimasti in &quot;Images&quot;</source>
        <translation>Temporary files left in &quot;Images&quot;</translation>
    </message>
    <message>
        <source>Rimettere ogni file in &quot;Images&quot; con lo stesso nome: alla prossima apertura la riga lo ritrova.</source>
        <translation>Put each file back into &quot;Images&quot; under the same name: the next start finds it again.</translation>
    </message>
    <message>
        <source>Copiare ogni file in &quot;Images&quot; con lo stesso nome: dalla prossima apertura la riga usa la copia.</source>
        <translation>Copy each file into &quot;Images&quot; under the same name: the row uses the copy from the next start on.</translation>
    </message>
    <message>
        <source>Il catalogo non esiste più: è stato eliminato altrove</source>
        <translation>The catalog is not there any more: it was deleted elsewhere</translation>
    </message>
    <message>
        <source>L&apos;immagine %1 non può essere letta e manca nella copia</source>
        <translation>The picture %1 cannot be read, and the copy lacks it</translation>
    </message>
    <message>
        <source>La copia è fatta, ma il disco ha segnalato un errore. Controllare il disco. (%1)</source>
        <translation>The copy is made, but the disk reported an error. Check the disk. (%1)</translation>
    </message>
    <message>
        <source>Il catalogo non esiste più</source>
        <translation>The catalog does not exist any more</translation>
    </message>
    <message>
        <source>Il catalogo è eliminato, ma il disco ha segnalato un errore; i file delle sue immagini restano in &quot;Images&quot;. Controllare il disco. (%1)</source>
        <translation>The catalog is deleted, but the disk reported an error; its picture files stay in &quot;Images&quot;. Check the disk. (%1)</translation>
    </message>
    <message>
        <source>Un&apos;altra operazione è in corso</source>
        <translation>Another operation is going on</translation>
    </message>
    <message>
        <source>Creazione nuovo catalogo</source>
        <translation>New catalog creation</translation>
    </message>
    <message>
        <source>Togli il logo</source>
        <translation>Remove the logo</translation>
    </message>
    <message>
        <source>Codice</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Descrizione</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>Il nome &apos;</source>
        <translation>The name &apos;</translation>
    </message>
    <message>
        <source>&apos; non è consentito per  un campo valore.</source>
        <translation>&apos; is not allowed for a value field.</translation>
    </message>
    <message>
        <source>&apos; non è consentito per un campo filtro.</source>
        <translation>&apos; is not allowed for a filter field.</translation>
    </message>
    <message>
        <source>I cataloghi in %1 sono aperti in un altro programma. Chiuderlo e riprovare.</source>
        <translation>The catalogs in %1 are open in another program. Close it and try again.</translation>
    </message>
    <message>
        <source>Sul disco non c&apos;è spazio per il ripristino: servono almeno altri %1.</source>
        <translation>There is no room on the disk for the restore: at least %1 more are needed.</translation>
    </message>
    <message>
        <source>La cartella %1 contiene quel che c&apos;era prima dell&apos;ultimo ripristino; se non serve più, eliminarla.</source>
        <translation>The folder %1 holds what was there before the last restore; if it is not needed, delete it.</translation>
    </message>
    <message>
        <source>Impossibile scrivere il file %1</source>
        <translation>The file %1 cannot be written</translation>
    </message>
    <message>
        <source>Il database della copia di sicurezza non è integro: %1</source>
        <translation>The database of the backup is not whole: %1</translation>
    </message>
    <message>
        <source>Impossibile spostare %1: %2</source>
        <translation>%1 cannot be moved: %2</translation>
    </message>
    <message>
        <source>Il file %1 non è leggibile, quindi un ripristino interrotto non può essere concluso. I dati sono nelle cartelle accanto.</source>
        <translation>The file %1 cannot be read, so that an interrupted restore cannot be finished. The data is in the folders beside it.</translation>
    </message>
    <message>
        <source>Un ripristino interrotto è stato portato a termine</source>
        <translation>An interrupted restore was brought to its end</translation>
    </message>
    <message>
        <source>È in corso un ripristino dei cataloghi. Attendere che finisca e riprovare.</source>
        <translation>The catalogs are being restored. Wait until that has finished and try again.</translation>
    </message>
    <message>
        <source>Sì</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>Negli appunti ci sono più celle. Copiare il testo di una cella sola.</source>
        <translation>There are several cells on the clipboard. Copy the text of a single cell.</translation>
    </message>
    <message>
        <source>Copia in corso...</source>
        <translation>Copying...</translation>
    </message>
    <message>
        <source>La disposizione della griglia non può essere letta: </source>
        <translation>The grid&apos;s layout cannot be read: </translation>
    </message>
    <message>
        <source>il testo è incompleto</source>
        <translation>the text is incomplete</translation>
    </message>
    <message>
        <source>è di un altro formato</source>
        <translation>it is of another format</translation>
    </message>
    <message>
        <source>è di un&apos;altra versione</source>
        <translation>it is of another version</translation>
    </message>
    <message>
        <source>#Eliminata</source>
        <translation>#Deleted</translation>
    </message>
    <message>
        <source>#Non leggibile</source>
        <translation>#Unreadable</translation>
    </message>
    <message>
        <source>Premere Esc per rinunciare alla modifica.</source>
        <translation>Press Esc to give up the change.</translation>
    </message>
    <message>
        <source>Premere Esc per vederla com&apos;è ora.</source>
        <translation>Press Esc to see it as it is now.</translation>
    </message>
    <message>
        <source>Esiste già una riga con %1. Scegliere un altro valore.</source>
        <translation>There is already a row with %1. Choose another value.</translation>
    </message>
    <message>
        <source>Codice: </source>
        <translation>Code: </translation>
    </message>
    <message>
        <source> Descrizione: </source>
        <translation> Description: </translation>
    </message>
    <message>
        <source>Pagina %1 di %2</source>
        <translation>Page %1 of %2</translation>
    </message>
    <message>
        <source>Impostazione %1 nella sezione [Riservati]: %2</source>
        <translation>Setting %1 in the section [Riservati]: %2</translation>
    </message>
    <message>
        <source>supera i 512 MB</source>
        <translation>it is larger than 512 MB</translation>
    </message>
    <message>
        <source>non è un&apos;immagine JPEG</source>
        <translation>it is no JPEG picture</translation>
    </message>
    <message>
        <source>l&apos;immagine è troppo grande (%1 x %2 punti)</source>
        <translation>the picture is too large (%1 x %2 pixels)</translation>
    </message>
    <message>
        <source>l&apos;immagine è danneggiata o incompleta (%1)</source>
        <translation>the picture is damaged or incomplete (%1)</translation>
    </message>
    <message>
        <source>L&apos;immagine JPEG non può essere scritta: %1</source>
        <translation>The JPEG picture cannot be written: %1</translation>
    </message>
    <message>
        <source>L&apos;immagine non ha una forma che si possa scrivere</source>
        <translation>The picture has no form that can be written</translation>
    </message>
    <message>
        <source>I percorsi delle immagini non sono stati adattati a questa cartella; alla prossima apertura si riprova. %1</source>
        <translation>The paths of the pictures were not fitted to this folder; the next start tries again. %1</translation>
    </message>
    <message>
        <source>L&apos;immagine diventerebbe troppo grande</source>
        <translation>The picture would become too large</translation>
    </message>
    <message>
        <source>Il file %1 non viene scritto: non si trova nella cartella &quot;Images&quot; del programma.</source>
        <translation>The file %1 is not written: it does not lie in the program&apos;s folder &quot;Images&quot;.</translation>
    </message>
    <message>
        <source>Specificare un valore per il codice del prodotto</source>
        <translation>Insert a value for the product code</translation>
    </message>
    <message>
        <source>I caratteri \ / : * &quot; ? &lt; &gt; | non sono consentiti nel codice del prodotto</source>
        <translation>\ / : * &quot; ? &lt; &gt; | are invalid character in product code</translation>
    </message>
    <message>
        <source>Il carattere | non è consentito</source>
        <translation>| is an invalid character</translation>
    </message>
    <message>
        <source>%1 prodotto</source>
        <translation>%1 product</translation>
    </message>
    <message>
        <source>%1 prodotti</source>
        <translation>%1 products</translation>
    </message>
    <message>
        <source>%1 selezionato</source>
        <translation>%1 selected</translation>
    </message>
    <message>
        <source>%1 selezionati</source>
        <translation>%1 selected</translation>
    </message>
    <message>
        <source>Il valore scritto nella riga non è stato accettato.</source>
        <translation>The value that was typed into the row was not accepted.</translation>
    </message>
    <message>
        <source>Premere Esc </source>
        <translation>Press Esc </translation>
    </message>
    <message>
        <source>Descrizione immagine per </source>
        <translation>Image description for </translation>
    </message>
    <message>
        <source>Aggiungi/modifica immagine</source>
        <translation>Add/edit image</translation>
    </message>
    <message>
        <source>Il prodotto è stato eliminato nel frattempo da un&apos;altra finestra o da un altro programma.</source>
        <translation>The product was deleted meanwhile by another window or program.</translation>
    </message>
    <message>
        <source>Il file %1 è già usato come immagine o logo altrove. Cambiare il codice.</source>
        <translation>The file %1 is a picture or a logo elsewhere already. Change the code.</translation>
    </message>
    <message>
        <source>Impossibile leggere la cartella %1</source>
        <translation>The folder %1 cannot be read</translation>
    </message>
    <message>
        <source>Eliminare gli articoli selezionati e le immagini ad essi relative?<byte value="xd"/>
L&apos;operazione non potrà essere annullata.<byte value="xd"/>
Procedere con l&apos;eliminazione?</source>
        <translation>Do you want to delete selected products and their images?<byte value="xd"/>
Continue?</translation>
    </message>
    <message>
        <source>Non è possibile inserire il carattere &quot;, sostituirlo con &apos;</source>
        <translation>You can&apos;t insert &quot; character, replace it with &apos;</translation>
    </message>
    <message>
        <source>Errore durante l&apos;inserimento del nuovo valore per il filtro. </source>
        <translation>Error inserting a new value for the filter. </translation>
    </message>
    <message>
        <source>Pubblica</source>
        <translation>Publish</translation>
    </message>
    <message>
        <source>Ordine</source>
        <translation>Order</translation>
    </message>
    <message>
        <source>Scheda tecnica</source>
        <translation>Tech data</translation>
    </message>
    <message>
        <source>Immagine</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Errore nella tabella Extensions</source>
        <translation>Error in Extensions table. Please contact technical support</translation>
    </message>
    <message>
        <source> Chiedere una versione corretta a chi ha fatto il plug-in.</source>
        <translation> Ask the maker of the plug-in for a corrected version.</translation>
    </message>
    <message>
        <source>Il plug-in legge la colonna &quot;%1&quot;, che la sua interrogazione non ha.</source>
        <translation>The plug-in reads the column &quot;%1&quot;, which its query does not have.</translation>
    </message>
    <message>
        <source>Il plug-in legge un valore dove non c&apos;è nessuna riga.</source>
        <translation>The plug-in reads a value where there is no row.</translation>
    </message>
    <message>
        <source>Il plug-in usa la connessione da un altro thread.</source>
        <translation>The plug-in uses the connection from another thread.</translation>
    </message>
    <message>
        <source>Il plug-in usa la connessione dopo la fine della sua chiamata.</source>
        <translation>The plug-in uses the connection after its call has ended.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; non è il nome di un plug-in</source>
        <translation>&quot;%1&quot; is not the name of a plug-in</translation>
    </message>
    <message>
        <source>Il plug-in %1 non è installato: manca il file %2</source>
        <translation>The plug-in %1 is not installed: the file %2 is missing</translation>
    </message>
    <message>
        <source>%1 è fatto per un&apos;altra versione di Vorlina (%2). Installarne una versione adatta.</source>
        <translation>%1 is made for another version of Vorlina (%2). Install a version that fits.</translation>
    </message>
    <message>
        <source>%1 non è un plug-in di Vorlina</source>
        <translation>%1 is not a plug-in of Vorlina</translation>
    </message>
    <message>
        <source>Il plug-in non è disponibile</source>
        <translation>The plug-in is not available</translation>
    </message>
    <message>
        <source>è già nell&apos;elenco</source>
        <translation>is in the list already</translation>
    </message>
    <message>
        <source>Impossibile caricare il plug-in %1: %2</source>
        <translation>The plug-in %1 cannot be loaded: %2</translation>
    </message>
    <message>
        <source>%1 non offre l&apos;interfaccia dei plug-in di Vorlina</source>
        <translation>%1 does not offer the plug-in interface of Vorlina</translation>
    </message>
    <message>
        <source>%1 non crea nessun plug-in</source>
        <translation>%1 makes no plug-in</translation>
    </message>
    <message>
        <source>Il plug-in ha segnalato un errore sconosciuto</source>
        <translation>The plug-in reported an unknown error</translation>
    </message>
    <message>
        <source>Non è possibile creare un catalogo finché un altro programma tiene il database. Chiudere quel programma.</source>
        <translation>No catalog can be made as long as another program holds the database. Close that program.</translation>
    </message>
    <message>
        <source>Non è possibile creare un catalogo: il database dei cataloghi non è aperto. Chiudere il programma, rimettere il file Catalog.db al suo posto e avviarlo di nuovo.</source>
        <translation>No catalog can be made: the database of the catalogs is not open. Close the program, put the file Catalog.db back in its place and start it again.</translation>
    </message>
    <message>
        <source>Nessun filtro di pubblicazione è installato</source>
        <translation>No publishing filter is installed</translation>
    </message>
    <message>
        <source>Errore nella istanza della dll: </source>
        <translation>Error instancing dll: </translation>
    </message>
    <message>
        <source>Inserire un nome valido per il catalogo</source>
        <translation>Insert a valid name for the catalog</translation>
    </message>
    <message>
        <source>Attenzione</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Duplicare il catalogo selezionato e le immagini ad esso relative?</source>
        <translation>Do you want to clone selected catalog and its images?</translation>
    </message>
    <message>
        <source>Impossibile duplicare il catalogo. </source>
        <translation>Impossible to clone the catalog. </translation>
    </message>
    <message>
        <source>Non c&apos;è nessun catalogo da pubblicare</source>
        <translation>There is no catalog to publish</translation>
    </message>
    <message>
        <source>Nessun filtro di pubblicazione è selezionato</source>
        <translation>No publishing filter is selected</translation>
    </message>
    <message>
        <source>Selezionare un filtro di pubblicazione per il catalogo</source>
        <translation>Select a publishing filter</translation>
    </message>
    <message>
        <source>Nessun catalogo è selezionato</source>
        <translation>No catalog is selected</translation>
    </message>
    <message>
        <source>Errore sconosciuto</source>
        <translation>Unknown error</translation>
    </message>
    <message>
        <source>Il file %1 non può essere usato: </source>
        <translation>The file %1 cannot be used: </translation>
    </message>
    <message>
        <source>non è un database di Vorlina. Ripristinare una copia di sicurezza.</source>
        <translation>it is no database of Vorlina. Restore a backup.</translation>
    </message>
    <message>
        <source>è stato creato da una versione più recente di Vorlina. Aggiornare il programma.</source>
        <translation>it was made by a newer version of Vorlina. Update the program.</translation>
    </message>
    <message>
        <source>è danneggiato. Ripristinare una copia di sicurezza. (</source>
        <translation>it is damaged. Restore a backup. (</translation>
    </message>
    <message>
        <source>non è stato possibile aggiornarlo, ed è rimasto com&apos;era. </source>
        <translation>it could not be updated, and is as it was. </translation>
    </message>
    <message>
        <source>è vuoto. Ripristinare una copia di sicurezza.</source>
        <translation>it is empty. Restore a backup.</translation>
    </message>
    <message>
        <source>La copia del database non è integra: %1</source>
        <translation>The copy of the database is not whole: %1</translation>
    </message>
    <message>
        <source>%1, riga %2: fa riferimento a una riga di %3 che non esiste</source>
        <translation>%1, row %2: refers to a row of %3 that does not exist</translation>
    </message>
    <message>
        <source>Il database non ha la struttura di un database di Vorlina (%1). Scegliere un&apos;altra copia di sicurezza.</source>
        <translation>The database is not built as a database of Vorlina is (%1). Choose another backup.</translation>
    </message>
    <message>
        <source>Testo di connessione non valido: %1</source>
        <translation>Not a connection text: %1</translation>
    </message>
    <message>
        <source>Il database %1 non esiste. Ripristinare una copia di sicurezza o reinstallare il programma.</source>
        <translation>The database %1 does not exist. Restore a backup or install the program again.</translation>
    </message>
    <message>
        <source>Il database non è aperto</source>
        <translation>The database is not open</translation>
    </message>
    <message>
        <source>Il database ha annullato l&apos;operazione in corso: nessuna sua modifica è stata salvata.</source>
        <translation>The database gave up the operation under way: none of its changes was saved.</translation>
    </message>
    <message>
        <source>La colonna %1 non esiste</source>
        <translation>There is no column %1</translation>
    </message>
    <message>
        <source>L&apos;elenco non è aperto: manca il database</source>
        <translation>The list is not open: there is no database</translation>
    </message>
    <message>
        <source>Nessuna riga è selezionata</source>
        <translation>There is no current row</translation>
    </message>
    <message>
        <source>La riga è stata eliminata nel frattempo da un&apos;altra finestra o da un altro programma.</source>
        <translation>The row was deleted meanwhile by another window or program.</translation>
    </message>
    <message>
        <source>La colonna %1 non è modificabile</source>
        <translation>The column %1 cannot be changed</translation>
    </message>
    <message>
        <source>&quot;%1&quot; non è un numero adatto a %2</source>
        <translation>&quot;%1&quot; is no number fit for %2</translation>
    </message>
    <message>
        <source>La riga è stata modificata nel frattempo da un&apos;altra finestra o da un altro programma.</source>
        <translation>The row was changed meanwhile by another window or program.</translation>
    </message>
    <message>
        <source>Esiste già una riga con lo stesso valore (%1). Scegliere un altro valore.</source>
        <translation>There is already a row with the same value (%1). Choose another value.</translation>
    </message>
    <message>
        <source>La riga fa riferimento a un catalogo o a un prodotto che non esiste più.</source>
        <translation>The row refers to a catalog or a product that no longer exists.</translation>
    </message>
    <message>
        <source>Si è scritto senza iniziare una transazione: nulla è stato salvato.</source>
        <translation>Something was written without beginning a transaction: nothing was saved.</translation>
    </message>
    <message>
        <source>Manca un valore obbligatorio (%1).</source>
        <translation>A required value is missing (%1).</translation>
    </message>
    <message>
        <source>Il database è in uso da un altro programma. Chiuderlo e riprovare.</source>
        <translation>The database is in use by another program. Close it and try again.</translation>
    </message>
    <message>
        <source>Il database è di sola lettura. Controllare i permessi del file e della sua cartella.</source>
        <translation>The database is read-only. Check the permissions of the file and of its folder.</translation>
    </message>
    <message>
        <source>Il database è danneggiato. Ripristinare una copia di sicurezza.</source>
        <translation>The database is damaged. Restore a backup.</translation>
    </message>
    <message>
        <source>Il file del database non può essere letto o scritto (%1). Controllare il disco, o il collegamento con esso, e riprovare: i dati possono essere integri.</source>
        <translation>The database file cannot be read or written (%1). Check the disk, or the connection to it, and try again: the data may well be whole.</translation>
    </message>
    <message>
        <source>Il database non può eseguire l&apos;operazione (%1).</source>
        <translation>The database cannot run the operation (%1).</translation>
    </message>
    <message>
        <source>L&apos;archivio %1 è danneggiato o non è un archivio zip (%2)</source>
        <translation>The archive %1 is damaged, or is no zip archive (%2)</translation>
    </message>
    <message>
        <source>%1 non è un file. Scegliere un altro nome.</source>
        <translation>%1 is no file. Choose another name.</translation>
    </message>
    <message>
        <source>L&apos;archivio contiene un nome di file che non è in UTF-8</source>
        <translation>The archive holds a file name that is not in UTF-8</translation>
    </message>
    <message>
        <source>L&apos;archivio contiene un collegamento o un file speciale: &quot;%1&quot;</source>
        <translation>The archive holds a link or a special file: &quot;%1&quot;</translation>
    </message>
    <message>
        <source>L&apos;archivio contiene troppi file</source>
        <translation>The archive holds too many files</translation>
    </message>
    <message>
        <source>Il contenuto dell&apos;archivio è troppo grande (al massimo %1 MB)</source>
        <translation>The content of the archive is too large (at most %1 MB)</translation>
    </message>
    <message>
        <source>Impossibile scrivere l&apos;archivio: %1</source>
        <translation>The archive cannot be written: %1</translation>
    </message>
    <message>
        <source>Il file &quot;%1&quot; è cambiato mentre veniva letto. Riprovare.</source>
        <translation>The file &quot;%1&quot; changed while it was read. Try again.</translation>
    </message>
    <message>
        <source>L&apos;archivio contiene due volte il nome &quot;%1&quot;, o nomi che differiscono solo per maiuscole e minuscole</source>
        <translation>The archive holds the name &quot;%1&quot; twice, or names that differ in letter case alone</translation>
    </message>
    <message>
        <source>Un nome di file non ammesso in un archivio: &quot;%1&quot;</source>
        <translation>A file name that an archive may not hold: &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Versione </source>
        <translation>Version </translation>
    </message>
    <message>
        <source>Inserire almeno un nome di catalogo</source>
        <translation>Catalog name required</translation>
    </message>
    <message>
        <source>Inserire almeno un criterio di filtraggio</source>
        <translation>Insert at least a filter name</translation>
    </message>
    <message>
        <source>Selezionare un immagine valida</source>
        <translation>Select a valid image</translation>
    </message>
    <message>
        <source>Non è possibile inserire filtri con nome uguale</source>
        <translation>You can&apos;t insert filters with the same name</translation>
    </message>
    <message>
        <source>Non è possibile inserire campi valore con nome uguale</source>
        <translation>You can&apos;t insert value fields with the same name</translation>
    </message>
    <message>
        <source>Procedere all&apos;eliminazione del catalogo e di tutte le immagini ad esso associate ?</source>
        <translation>Do you want to delete selected catalog and its images?</translation>
    </message>
    <message>
        <source>Inserire il nuovo valore in tabella ?</source>
        <translation>Do you want to insert a new item in the table?</translation>
    </message>
    <message>
        <source>Aggiungere una scheda tecnica per il prodotto?</source>
        <translation>Do you want to add tech data for the selected product?</translation>
    </message>
    <message>
        <source>Procedere all&apos;eliminazione dei prodotti selezionati?</source>
        <translation>Do you want to delete the selected product?</translation>
    </message>
    <message>
        <source>Salvare le modifiche effettuate ?</source>
        <translation>Do you want to save?</translation>
    </message>
    <message>
        <source>Procedere all&apos;eliminazione del filtro:</source>
        <translation>Do you want to delete the selected filter</translation>
    </message>
    <message>
        <source>e di tutti i valori ad esso relativi</source>
        <translation>and all data belonging to it?</translation>
    </message>
    <message>
        <source>Impossibile eliminare il filtro. Utilizzare la maschera proprietà del catalogo.</source>
        <translation>Can&apos;t delete the filter. Use catalog properties form.</translation>
    </message>
    <message>
        <source>Impossibile creare il catalogo. Non è possibile inserire campi valori con gli stessi nomi di campi filtro.</source>
        <translation>Can&apos;t create catalog. You can&apos;t insert value fields with the same names as filter fields.</translation>
    </message>
    <message>
        <source>Eliminando l&apos;immagine principale saranno eliminate anche tutte le altre. Procedere?</source>
        <translation>Deleting main image will delete all the others. Continue?</translation>
    </message>
    <message>
        <source>Eliminare l&apos;immagine selezionata?</source>
        <translation>Delete selected image?</translation>
    </message>
    <message>
        <source>Procedendo verranno eliminate tutte le immagini supplementari. Procedere?</source>
        <translation>All the additional images will be deleted. Continue?</translation>
    </message>
    <message>
        <source>Griglia</source>
        <translation>Grid</translation>
    </message>
    <message>
        <source>Nuovo</source>
        <translation>New</translation>
    </message>
    <message>
        <source>Inserisci un nuovo prodotto</source>
        <translation>Insert new item</translation>
    </message>
    <message>
        <source>  Modifica</source>
        <translation>  Edit</translation>
    </message>
    <message>
        <source>Modifica il prodotto selezionato</source>
        <translation>Edit selected item</translation>
    </message>
    <message>
        <source>  Elimina</source>
        <translation>  Delete</translation>
    </message>
    <message>
        <source>Elimina il prodotto selezionato</source>
        <translation>Delete selected item</translation>
    </message>
    <message>
        <source>Cerca</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>Cerca un prodotto</source>
        <translation>Search for an item</translation>
    </message>
    <message>
        <source>Immagini</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Proprietà</source>
        <translation>Properties</translation>
    </message>
    <message>
        <source>Imposta le proprietà del catalogo</source>
        <translation>Edit catalog properties</translation>
    </message>
    <message>
        <source>Pubblica il catalogo</source>
        <translation>Publish catalog</translation>
    </message>
    <message>
        <source>Importa</source>
        <translation>Import...</translation>
    </message>
    <message>
        <source>Importazione da una cartella di immagini</source>
        <translation>Import from image folder</translation>
    </message>
    <message>
        <source>    Aiuto</source>
        <translation>    Help</translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Copia</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Imposta ordine di pubblicazione</source>
        <translation>Change publishing order</translation>
    </message>
    <message>
        <source>Ripristina larghezza colonne</source>
        <translation>Restore columns width</translation>
    </message>
    <message>
        <source>Sposta righe in su</source>
        <translation>Move rows up</translation>
    </message>
    <message>
        <source>Sposta righe in giù</source>
        <translation>Move rows down</translation>
    </message>
    <message>
        <source>Aggiorna</source>
        <translation>Refresh</translation>
    </message>
    <message>
        <source>Ordina</source>
        <translation>Sort</translation>
    </message>
    <message>
        <source>Sposta a sinistra</source>
        <translation>Move left</translation>
    </message>
    <message>
        <source>Sposta a destra</source>
        <translation>Move right</translation>
    </message>
    <message>
        <source>Sinistra</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>Centrato</source>
        <translation>Center</translation>
    </message>
    <message>
        <source>Destra</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>Colonna</source>
        <translation>Columns</translation>
    </message>
    <message>
        <source>Testo a capo</source>
        <translation>Wordwrap</translation>
    </message>
    <message>
        <source>Allineamento</source>
        <translation>Alignment</translation>
    </message>
    <message>
        <source> Nuovo</source>
        <translation> New</translation>
    </message>
    <message>
        <source>Crea un nuovo catalogo</source>
        <translation>Create new catalog</translation>
    </message>
    <message>
        <source>Modifica il catalogo selezionato</source>
        <translation>Edit selected catalog</translation>
    </message>
    <message>
        <source>  Elimina </source>
        <translation>  Delete </translation>
    </message>
    <message>
        <source>Elimina il catalogo selezionato</source>
        <translation>Delete selected catalog</translation>
    </message>
    <message>
        <source>Duplica</source>
        <translation>Clone</translation>
    </message>
    <message>
        <source>Duplica il catalogo selezionato</source>
        <translation>Clone selected catalog</translation>
    </message>
    <message>
        <source>Pubblica il catalogo selezionato</source>
        <translation>Publish selected catalog</translation>
    </message>
    <message>
        <source>   Plug-Ins</source>
        <translation>   Plug-Ins</translation>
    </message>
    <message>
        <source>Installa nuovi plug-ins</source>
        <translation>Install new plug-ins</translation>
    </message>
    <message>
        <source>   Aiuto</source>
        <translation>   Help</translation>
    </message>
    <message>
        <source>Supporto</source>
        <translation>Support</translation>
    </message>
    <message>
        <source>Aggiornamenti</source>
        <translation>Updates</translation>
    </message>
    <message>
        <source>Tour</source>
        <translation>Tour</translation>
    </message>
    <message>
        <source>Opzioni</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Informazioni su...</source>
        <translation>About Vorlina...</translation>
    </message>
    <message>
        <source>Plugins</source>
        <translation>Plugins</translation>
    </message>
    <message>
        <source>Installa nuovo plugin</source>
        <translation>Install new plugin</translation>
    </message>
    <message>
        <source>Installa skin per</source>
        <translation>Install skin for</translation>
    </message>
    <message>
        <source>L&apos;istruzione per il database è vuota, o contiene solo commenti.</source>
        <translation>The statement for the database is empty, or holds comments alone.</translation>
    </message>
    <message>
        <source>Nuovo nome di un catalogo: %1</source>
        <translation>New name of a catalog: %1</translation>
    </message>
    <message>
        <source>Duplicazione del catalogo %1</source>
        <translation>Clone of catalog %1</translation>
    </message>
    <message>
        <source>Eliminazione del catalogo %1</source>
        <translation>Deletion of catalog %1</translation>
    </message>
    <message>
        <source>Nuovo catalogo %1</source>
        <translation>New catalog %1</translation>
    </message>
    <message>
        <source>Logo di %1</source>
        <translation>Logo of %1</translation>
    </message>
    <message>
        <source>Percorsi delle immagini adattati a questa cartella</source>
        <translation>Picture paths fitted to this folder</translation>
    </message>
    <message>
        <source>Importazione di %1</source>
        <translation>Import of %1</translation>
    </message>
    <message>
        <source>Nuovo prodotto %1</source>
        <translation>New product %1</translation>
    </message>
    <message>
        <source>Modifica di %1</source>
        <translation>Change of %1</translation>
    </message>
    <message>
        <source>Eliminazione di %1 prodotti</source>
        <translation>Deletion of %1 products</translation>
    </message>
    <message>
        <source>Immagine di %1</source>
        <translation>Picture of %1</translation>
    </message>
    <message>
        <source>Immagine aggiuntiva di %1</source>
        <translation>Additional picture of %1</translation>
    </message>
    <message>
        <source>Nuovo valore %1 di un filtro</source>
        <translation>New value %1 of a filter</translation>
    </message>
    <message>
        <source>Numerazione dei prodotti senza numero</source>
        <translation>Numbers for products without one</translation>
    </message>
    <message>
        <source>Ordine di pubblicazione del catalogo</source>
        <translation>Publication order of the catalog</translation>
    </message>
    <message>
        <source>Spostamento di %1 prodotti</source>
        <translation>Move of %1 products</translation>
    </message>
    <message>
        <source>L&apos;immagine è stata eliminata nel frattempo da un&apos;altra finestra o da un altro programma.</source>
        <translation>The image was deleted meanwhile by another window or program.</translation>
    </message>
    <message>
        <source>Il file %1 è già usato come immagine o logo altrove. Eliminare questa immagine e aggiungerne una nuova.</source>
        <translation>The file %1 is a picture or a logo elsewhere already. Delete this image and add a new one.</translation>
    </message>
    <message>
        <source>Cambio di un&apos;immagine di %1</source>
        <translation>Change of an image of %1</translation>
    </message>
    <message>
        <source>Descrizione di un&apos;immagine di %1</source>
        <translation>Description of an image of %1</translation>
    </message>
    <message>
        <source>Eliminazione di un&apos;immagine di %1</source>
        <translation>Deletion of an image of %1</translation>
    </message>
    <message>
        <source>Eliminazione delle immagini aggiuntive di %1</source>
        <translation>Deletion of the additional images of %1</translation>
    </message>
    <message>
        <source>Eliminazione di tutte le immagini di %1</source>
        <translation>Deletion of all images of %1</translation>
    </message>
    <message>
        <source> Aggiungi</source>
        <translation> Add  </translation>
    </message>
    <message>
        <source>Aggiungi un&apos; immagine</source>
        <translation>Add new image</translation>
    </message>
    <message>
        <source>Elimina l&apos;immagine selezionata</source>
        <translation>Delete selected image</translation>
    </message>
    <message>
        <source> Cambia</source>
        <translation> Change</translation>
    </message>
    <message>
        <source>Cambia l&apos;immagine selezionata</source>
        <translation>Change selected image</translation>
    </message>
    <message>
        <source>  Svuota</source>
        <translation>  Clear</translation>
    </message>
    <message>
        <source>Svuota l&apos;elenco delle immagini</source>
        <translation>Clear image list</translation>
    </message>
    <message>
        <source>Seleziona un&apos;immagine</source>
        <translation>Select an image</translation>
    </message>
    <message>
        <source>Immagini (*.jpg,*.jpeg)|*.jpg;*.jpeg</source>
        <translation>Images (*.jpg,*.jpeg)|*.jpg;*.jpeg</translation>
    </message>
    <message>
        <source>Descrizione immagine</source>
        <translation>Image description</translation>
    </message>
    <message>
        <source>Aggiungi/Modifica image</source>
        <translation>Add/Edit image</translation>
    </message>
    <message>
        <source>Immagine principale: %1</source>
        <translation>Main image: %1</translation>
    </message>
    <message>
        <source>Valore</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>Prodotti che hanno il valore &quot;%1&quot;: %2.<byte value="xd"/>
Eliminandolo resteranno senza. Procedere?</source>
        <translation>Products that have the value &quot;%1&quot;: %2.<byte value="xd"/>
If it is deleted they will be left without one. Continue?</translation>
    </message>
    <message>
        <source>Prodotti che hanno uno dei valori selezionati: %1.<byte value="xd"/>
Eliminandoli resteranno senza. Procedere?</source>
        <translation>Products that have one of the selected values: %1.<byte value="xd"/>
If they are deleted they will be left without one. Continue?</translation>
    </message>
    <message>
        <source>Prodotti che hanno il valore &quot;%1&quot;: %2.<byte value="xd"/>
Mostreranno &quot;%3&quot;. Procedere?</source>
        <translation>Products that have the value &quot;%1&quot;: %2.<byte value="xd"/>
They will show &quot;%3&quot;. Continue?</translation>
    </message>
    <message>
        <source>Valore %1 di un filtro</source>
        <translation>Filter value %1</translation>
    </message>
    <message>
        <source>Specificare un testo per il valore</source>
        <translation>A text for the value is required</translation>
    </message>
    <message>
        <source>Eliminazione di %1 valori di un filtro</source>
        <translation>Deletion of %1 filter values</translation>
    </message>
    <message>
        <source>Nuovo nome di un filtro: %1</source>
        <translation>New name of a filter: %1</translation>
    </message>
    <message>
        <source>Eliminare le caratteristiche selezionate?</source>
        <translation>Delete the selected features?</translation>
    </message>
    <message>
        <source>Scheda tecnica di %1</source>
        <translation>Tech data of %1</translation>
    </message>
    <message>
        <source>Il campo &quot;Caratteristica&quot; non può contenere più di 50 caratteri</source>
        <translation>&quot;Feature&quot; field can&apos;t contain more than 50 characters.</translation>
    </message>
    <message>
        <source>Caratteristica</source>
        <translation>Feature</translation>
    </message>
    <message>
        <source>Il filtro ha cambiato nome nel frattempo in un&apos;altra finestra.</source>
        <translation>The filter was renamed meanwhile in another window.</translation>
    </message>
    <message>
        <source>L&apos;immagine si aggiunge dopo aver salvato il prodotto.</source>
        <translation>The image is added once the product is saved.</translation>
    </message>
    <message>
        <source>Nessuna immagine. Trascinare qui una foto JPEG.</source>
        <translation>No image. Drop a JPEG photo here.</translation>
    </message>
    <message>
        <source>Selezionare un&apos;immagine</source>
        <translation>Select an image</translation>
    </message>
    <message>
        <source>Immagini (*.jpg)|*.jpg</source>
        <translation>Images (*.jpg)|*.jpg</translation>
    </message>
    <message>
        <source>Salva</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Salva le modifiche</source>
        <translation>Save changes</translation>
    </message>
    <message>
        <source>Elimina</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Elimina il prodotto</source>
        <translation>Delete product</translation>
    </message>
    <message>
        <source>Visualizza/imposta l&apos;immagine per il prodotto</source>
        <translation>View/set product images</translation>
    </message>
    <message>
        <source>Scheda</source>
        <translation>Tech Data</translation>
    </message>
    <message>
        <source>Inserisci/modifica la scheda tecnica del prodotto</source>
        <translation>Edit product tech data</translation>
    </message>
    <message>
        <source>Trova</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>Trova il prodotto che soddisfa i criteri specificati</source>
        <translation>Search for a product based on selected criteria</translation>
    </message>
    <message>
        <source>Precedente</source>
        <translation>Previous</translation>
    </message>
    <message>
        <source>Successivo</source>
        <translation>Next</translation>
    </message>
    <message>
        <source>Visualizza</source>
        <translation>View</translation>
    </message>
    <message>
        <source>Cambia</source>
        <translation>Change</translation>
    </message>
    <message>
        <source>Tutti</source>
        <translation>All</translation>
    </message>
    <message>
        <source>Mostra di nuovo tutti i prodotti</source>
        <translation>Show all products again</translation>
    </message>
    <message>
        <source>Ricerca attiva: %1 di %2 prodotti</source>
        <translation>Search active: %1 of %2 products</translation>
    </message>
    <message>
        <source>Inizia con...</source>
        <translation>Begins with...</translation>
    </message>
    <message>
        <source>Nel frattempo il prodotto è stato modificato da un&apos;altra finestra o da un altro programma: %1.<byte value="xd"/>
Sostituire quei valori con ciò che è scritto qui?</source>
        <translation>Meanwhile another window or program has changed the product: %1.<byte value="xd"/>
Replace those values with what is written here?</translation>
    </message>
    <message>
        <source>Salvare ciò che è scritto qui come nuovo prodotto?</source>
        <translation>Save what is written here as a new product?</translation>
    </message>
    <message>
        <source>Il prodotto non è ancora stato salvato: non c&apos;è nulla da eliminare.</source>
        <translation>The product has not been saved yet: there is nothing to delete.</translation>
    </message>
    <message>
        <source>Il valore scelto per &quot;%1&quot; è stato eliminato nel frattempo. Sceglierne un altro.</source>
        <translation>The value chosen for &quot;%1&quot; has been deleted meanwhile. Choose another one.</translation>
    </message>
    <message>
        <source>Il codice &quot;%1&quot; è già usato da un altro prodotto di questo catalogo. Scegliere un altro codice.</source>
        <translation>The code &quot;%1&quot; is already used by another product of this catalog. Choose another code.</translation>
    </message>
    <message>
        <source>Il prodotto non ha più un&apos;immagine principale. Sceglierne una prima di aggiungere altre immagini.</source>
        <translation>The product has no main image any more. Choose one before adding other images.</translation>
    </message>
    <message>
        <source>Inserisci un nuovo prodotto</source>
        <comment>product card</comment>
        <translation>New product</translation>
    </message>
    <message>
        <source>Prodotto precedente dell&apos;elenco</source>
        <translation>Previous product in the list</translation>
    </message>
    <message>
        <source>Prodotto successivo dell&apos;elenco</source>
        <translation>Next product in the list</translation>
    </message>
    <message>
        <source>Tasti e scorciatoie</source>
        <translation>Keys and shortcuts</translation>
    </message>
    <message>
        <source>Trova nelle righe</source>
        <translation>Find in the rows</translation>
    </message>
    <message>
        <source>Trova il successivo</source>
        <translation>Find next</translation>
    </message>
    <message>
        <source>Trova il precedente</source>
        <translation>Find previous</translation>
    </message>
    <message>
        <source>Vai alla cella accanto</source>
        <translation>Go to the next cell in that direction</translation>
    </message>
    <message>
        <source>Vai alla cella seguente o precedente che si può scrivere</source>
        <translation>Go to the next or previous cell that can be typed into</translation>
    </message>
    <message>
        <source>Vai alla prima o all&apos;ultima cella della riga</source>
        <translation>Go to the first or last cell of the row</translation>
    </message>
    <message>
        <source>Scorri di una pagina</source>
        <translation>Scroll by a page</translation>
    </message>
    <message>
        <source>Vai alla prima o all&apos;ultima riga</source>
        <translation>Go to the first or last row</translation>
    </message>
    <message>
        <source>Seleziona più righe</source>
        <translation>Select several rows</translation>
    </message>
    <message>
        <source>Seleziona tutte le righe</source>
        <translation>Select all rows</translation>
    </message>
    <message>
        <source>Modifica la cella; anche scrivendo, al posto di ciò che contiene</source>
        <translation>Edit the cell; typing does too, over what it holds</translation>
    </message>
    <message>
        <source>Annulla le modifiche della cella, poi quelle della riga</source>
        <translation>Give up the changes of the cell, then those of the row</translation>
    </message>
    <message>
        <source>Metti o togli il segno di spunta</source>
        <translation>Set or clear the check mark</translation>
    </message>
    <message>
        <source>Apri l&apos;elenco della cella</source>
        <translation>Open the cell&apos;s list</translation>
    </message>
    <message>
        <source>Copia le righe selezionate</source>
        <translation>Copy the selected rows</translation>
    </message>
    <message>
        <source>Incolla un testo nella cella</source>
        <translation>Paste a text into the cell</translation>
    </message>
    <message>
        <source>Elimina le righe selezionate</source>
        <translation>Delete the selected rows</translation>
    </message>
    <message>
        <source>Apri il menu delle righe</source>
        <translation>Open the menu of the rows</translation>
    </message>
    <message>
        <source>Apri il menu della colonna</source>
        <translation>Open the menu of the column</translation>
    </message>
    <message>
        <source>Apri l&apos;elenco dei valori di un filtro</source>
        <translation>Open the list of a filter&apos;s values</translation>
    </message>
    <message>
        <source>Durante una ricerca: trova</source>
        <translation>In a search: find</translation>
    </message>
    <message>
        <source>Chiudi la finestra</source>
        <translation>Close the window</translation>
    </message>
    <message>
        <source>Modifica la descrizione dell&apos;immagine</source>
        <translation>Edit the picture&apos;s description</translation>
    </message>
    <message>
        <source>Apri la caratteristica in una finestra più grande</source>
        <translation>Open the feature in a larger window</translation>
    </message>
    <message>
        <source>Annulla le modifiche della cella e della riga, poi chiudi la finestra</source>
        <translation>Give up the changes of the cell and the row, then close the window</translation>
    </message>
    <message>
        <source>Scegli un&apos;immagine</source>
        <translation>Choose a picture</translation>
    </message>
    <message>
        <source>Apri la scheda del prodotto scelto</source>
        <translation>Open the chosen product&apos;s card</translation>
    </message>
    <message>
        <source>Vai alla pagina precedente o seguente</source>
        <translation>Go to the previous or next page</translation>
    </message>
    <message>
        <source>Vai alla prima o all&apos;ultima pagina</source>
        <translation>Go to the first or last page</translation>
    </message>
    <message>
        <source>Finestra dei prodotti</source>
        <translation>Products window</translation>
    </message>
    <message>
        <source>Scheda del prodotto</source>
        <translation>Product card</translation>
    </message>
    <message>
        <source>Immagini di un prodotto</source>
        <translation>Pictures of a product</translation>
    </message>
    <message>
        <source>Righe e celle</source>
        <translation>Rows and cells</translation>
    </message>
    <message>
        <source>Immagini del catalogo</source>
        <translation>Pictures of the catalog</translation>
    </message>
    <message>
        <source>Apri il catalogo selezionato, o pubblica con il plug-in selezionato</source>
        <translation>Open the selected catalog, or publish with the selected plug-in</translation>
    </message>
    <message>
        <source>Cambia il nome del catalogo selezionato</source>
        <translation>Rename the selected catalog</translation>
    </message>
    <message>
        <source>Finestra dei cataloghi</source>
        <translation>Catalogs window</translation>
    </message>
    <message>
        <source>Non importato: %1 (%2)</source>
        <translation>Not imported: %1 (%2)</translation>
    </message>
    <message>
        <source>Togliere il file dalla cartella, oppure salvarlo di nuovo come immagine JPEG.</source>
        <translation>Take the file out of the folder, or save it anew as a JPEG picture.</translation>
    </message>
    <message>
        <source>L&apos;importazione si è fermata al file %1.</source>
        <translation>The import stopped at the file %1.</translation>
    </message>
    <message>
        <source>In un&apos;altra finestra è in corso un&apos;importazione.</source>
        <translation>An import is going on in another window.</translation>
    </message>
    <message>
        <source>Nessun prodotto importato</source>
        <translation>No product imported</translation>
    </message>
    <message>
        <source>Importazione annullata. </source>
        <translation>Import cancelled. </translation>
    </message>
    <message>
        <source>Importazione interrotta. </source>
        <translation>Import stopped. </translation>
    </message>
    <message>
        <source>il nome non finisce in .jpg: per importare il file va rinominato</source>
        <translation>the name does not end in .jpg: rename the file to import it</translation>
    </message>
    <message>
        <source>non è un&apos;immagine &apos;jpg&apos;</source>
        <translation>it is no &apos;jpg&apos; image</translation>
    </message>
    <message>
        <source>il nome contiene caratteri illeggibili: per importare il file va rinominato</source>
        <translation>the name has characters that cannot be read: rename the file to import it</translation>
    </message>
    <message>
        <source>è un collegamento che non porta a nessun file</source>
        <translation>it is a link that leads to no file</translation>
    </message>
    <message>
        <source>%1 su %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message>
        <source>1 file &amp;escluso...</source>
        <translation>1 file l&amp;eft out...</translation>
    </message>
    <message>
        <source>%1 file &amp;esclusi...</source>
        <translation>%1 files l&amp;eft out...</translation>
    </message>
    <message>
        <source>Annullamento...</source>
        <translation>Cancelling...</translation>
    </message>
    <message>
        <source>Importazione</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>Immagini importate</source>
        <translation>Imported pictures</translation>
    </message>
    <message>
        <source>%1 di %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message>
        <source>Premere F5 per vederli.</source>
        <translation>Press F5 to see what came.</translation>
    </message>
    <message>
        <source>Mentre si modifica: conferma la cella e scendi</source>
        <translation>While editing: take the cell and go down</translation>
    </message>
    <message>
        <source>Altrimenti: apri la scheda del prodotto</source>
        <translation>Otherwise: open the product&apos;s card</translation>
    </message>
    <message>
        <source>Colonne</source>
        <translation>Columns</translation>
    </message>
    <message>
        <source>Interrompi l&apos;importazione in corso</source>
        <translation>Stop the import that is running</translation>
    </message>
    <message>
        <source>Il carattere | non è consentito</source>
        <comment>catalog properties</comment>
        <translation>| is an invalid character </translation>
    </message>
    <message>
        <source>&apos; non è consentito per  un campo valore o un campo filtro.</source>
        <translation>&apos; is not allowed for a value or a filter field.</translation>
    </message>
    <message>
        <source>Proprietà di %1</source>
        <translation>Properties of %1</translation>
    </message>
    <message>
        <source>Il file %1 è già usato come immagine di un prodotto. Cambiare il codice di quel prodotto.</source>
        <translation>The file %1 is in use already as the picture of a product. Change the code of that product.</translation>
    </message>
    <message>
        <source>Nel frattempo il catalogo è stato modificato da un&apos;altra finestra o da un altro programma: %1.<byte value="xd"/>
Sostituire quei valori con ciò che è scritto qui?</source>
        <translation>Another window or another program has changed the catalog meanwhile: %1.<byte value="xd"/>
Replace those values with what is written here?</translation>
    </message>
    <message>
        <source>La cartella di destinazione coincide con quella di origine.</source>
        <translation>Destination and source folder are the same .</translation>
    </message>
    <message>
        <source>Mostra il logo</source>
        <translation>Show the logo</translation>
    </message>
    <message>
        <source>&amp;Trova:</source>
        <translation>&amp;Find:</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Il database non può essere letto</source>
        <translation>The database cannot be read</translation>
    </message>
    <message>
        <source>Ricerca in corso</source>
        <translation>Searching</translation>
    </message>
    <message>
        <source>Trovate finora: %1</source>
        <translation>Found so far: %1</translation>
    </message>
    <message>
        <source>Trovate: %1, ricerca interrotta</source>
        <translation>Found: %1, search stopped</translation>
    </message>
    <message>
        <source>Nessun risultato</source>
        <translation>Nothing found</translation>
    </message>
    <message>
        <source>Trovate: %1</source>
        <translation>Found: %1</translation>
    </message>
    <message>
        <source>%1, ripreso dall&apos;inizio</source>
        <translation>%1, continued from the top</translation>
    </message>
    <message>
        <source>%1, ripreso dalla fine</source>
        <translation>%1, continued from the end</translation>
    </message>
    <message>
        <source>Nella riga di ricerca: trova il successivo o il precedente</source>
        <translation>In the search line: find next or previous</translation>
    </message>
    <message>
        <source>Interrompi la ricerca in corso, altrimenti chiudi la riga di ricerca</source>
        <translation>Stop the search that is running, otherwise close the search line</translation>
    </message>
    <message>
        <source>Vai alla scheda seguente o precedente della finestra</source>
        <translation>Go to the next or previous tab of the window</translation>
    </message>
    <message>
        <source>Sul logo: mostra l&apos;immagine</source>
        <translation>On the logo: show the picture</translation>
    </message>
    <message>
        <source>Sul logo: togli il logo</source>
        <translation>On the logo: remove the logo</translation>
    </message>
    <message>
        <source>Proprietà del catalogo</source>
        <translation>Catalog properties</translation>
    </message>
    <message>
        <source>In questo catalogo si stanno importando immagini. Attendere la fine dell&apos;importazione, oppure annullarla.</source>
        <translation>Pictures are being imported into this catalog. Wait for the end of the import, or cancel it.</translation>
    </message>
    <message>
        <source>Il catalogo è in corso di pubblicazione. Attenderne la fine.</source>
        <translation>The catalog is being published. Wait for the end of that.</translation>
    </message>
    <message>
        <source>Prima di importare il resto spostare altrove le immagini già importate, cioè quel file e quelli che vengono prima in ordine di nome: diventerebbero prodotti una seconda volta.</source>
        <translation>Before importing the rest, move the pictures that were imported, which are that file and those before it by name, to another place: they would become products a second time.</translation>
    </message>
    <message>
        <source>%1, l&apos;ultimo dal file %2</source>
        <translation>%1, the last from the file %2</translation>
    </message>
    <message>
        <source>Dati del filtro</source>
        <translation>Filter Data</translation>
    </message>
    <message>
        <source>Il resto è stato salvato, il logo è rimasto quello di prima. %1</source>
        <translation>All else was saved; the logo is the one that it was. %1</translation>
    </message>
    <message>
        <source>Il filtro è stato eliminato nel frattempo da un&apos;altra finestra o da un altro programma.</source>
        <translation>The filter was deleted meanwhile by another window or program.</translation>
    </message>
    <message>
        <source>Non è stato possibile tenere prima una copia automatica del database, e nulla è stato modificato. Aggiungere --without-copy per continuare senza. (%1)</source>
        <translation>An automatic copy of the database could not be kept beforehand, and nothing was changed. Add --without-copy to go on without one. (%1)</translation>
    </message>
    <message>
        <source>Nessuna copia automatica del database: %1</source>
        <translation>No automatic copy of the database: %1</translation>
    </message>
    <message>
        <source>eliminazione di un catalogo</source>
        <translation>deletion of a catalog</translation>
    </message>
    <message>
        <source>ripristino</source>
        <translation>restore</translation>
    </message>
    <message>
        <source>importazione di immagini</source>
        <translation>import of pictures</translation>
    </message>
    <message>
        <source>La cartella %1 è in uso da un altro programma.</source>
        <translation>The folder %1 is in use by another program.</translation>
    </message>
    <message>
        <source>Non è stato possibile tenere prima una copia automatica del database.</source>
        <translation>An automatic copy of the database could not be kept beforehand.</translation>
    </message>
    <message>
        <source>Continuare senza?</source>
        <translation>Go on without it?</translation>
    </message>
    <message>
        <source>solo il database</source>
        <translation>the database alone</translation>
    </message>
    <message>
        <source>ultimo ripristino</source>
        <translation>last restore</translation>
    </message>
    <message>
        <source>database, immagini e layout</source>
        <translation>database, pictures and layouts</translation>
    </message>
    <message>
        <source>Ripristina una copia di sicurezza</source>
        <translation>Restore a backup</translation>
    </message>
    <message>
        <source>Copie di sicurezza|*.zip;*.db</source>
        <translation>Backups|*.zip;*.db</translation>
    </message>
    <message>
        <source>Impossibile leggere il file %1</source>
        <translation>The file %1 cannot be read</translation>
    </message>
    <message>
        <source>In %1 non c&apos;è nessun database.</source>
        <translation>There is no database in %1.</translation>
    </message>
    <message>
        <source>Si stanno importando immagini in un catalogo. Attendere la fine dell&apos;importazione, oppure annullarla.</source>
        <translation>Pictures are being imported into a catalog. Wait until the import has ended, or cancel it.</translation>
    </message>
    <message>
        <source>È in corso la pubblicazione di un catalogo. Attenderne la fine.</source>
        <translation>A catalog is being published. Wait until that has ended.</translation>
    </message>
    <message>
        <source>Salva una copia di sicurezza</source>
        <translation>Save a backup</translation>
    </message>
    <message>
        <source>Copie di sicurezza|*.zip</source>
        <translation>Backups|*.zip</translation>
    </message>
    <message>
        <source>Il file %1 esiste già. Sostituirlo?</source>
        <translation>The file %1 exists already. Replace it?</translation>
    </message>
    <message>
        <source>Quel che c&apos;è ora resta nella cartella %1 fino al prossimo ripristino, e il suo database anche tra le copie automatiche. Le finestre dei cataloghi si chiudono.</source>
        <translation>What is there now stays in the folder %1 until the next restore, and its database also among the automatic copies. The windows of the catalogs will close.</translation>
    </message>
    <message>
        <source>Immagini che mancano (%1):</source>
        <translation>Missing pictures (%1):</translation>
    </message>
    <message>
        <source>Copia di sicurezza in %1</source>
        <translation>Backup to %1</translation>
    </message>
    <message>
        <source>Salvare il resto, senza di esse?</source>
        <translation>Save the rest, without them?</translation>
    </message>
    <message>
        <source>Ripristino di %1</source>
        <translation>Restoring %1</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>Rinomina</source>
        <translation>Rename</translation>
    </message>
    <message>
        <source>Ripristinare %1, del %2 (%3 file, %4)?</source>
        <translation>Restore %1 of %2 (%3 files, %4)?</translation>
    </message>
    <message>
        <source>Sostituisce tutti i cataloghi, con le immagini e i layout, anche quelli aggiunti dopo.</source>
        <translation>It replaces all catalogs with their pictures and layouts, also those that were added later.</translation>
    </message>
    <message>
        <source>Copia di sicurezza...</source>
        <translation>Backup...</translation>
    </message>
    <message>
        <source>Ripristina...</source>
        <translation>Restore...</translation>
    </message>
    <message>
        <source>Ripristinato il database %1</source>
        <translation>Restored the database %1</translation>
    </message>
    <message>
        <source>Ripristinare il database %1, del %2?</source>
        <translation>Restore the database %1 of %2?</translation>
    </message>
    <message>
        <source>Il pacchetto è danneggiato o non è fatto come deve (%1). Procurarsene un&apos;altra copia.</source>
        <translation>The package is damaged or is not made as it has to be (%1). Get another copy of it.</translation>
    </message>
    <message>
        <source>Il pacchetto è fatto per una versione più recente di Vorlina</source>
        <translation>The package was made for a newer version of Vorlina</translation>
    </message>
    <message>
        <source>Il plug-in è fatto per un altro tipo di computer (%1): qui ne serve uno per %2</source>
        <translation>The plug-in was made for another kind of computer (%1): here it has to be one for %2</translation>
    </message>
    <message>
        <source>Il plug-in è fatto per un&apos;altra versione di Vorlina (%1). Procurarsene una versione adatta.</source>
        <translation>The plug-in was made for another version of Vorlina (%1). Get a version that fits.</translation>
    </message>
    <message>
        <source>Il plug-in è fatto con Qt %1, e questo programma ha Qt %2. Procurarsene una versione adatta.</source>
        <translation>The plug-in was made with Qt %1, and this program has Qt %2. Get a version that fits.</translation>
    </message>
    <message>
        <source>Un altro programma sta installando un plug-in. Riprovare.</source>
        <translation>Another program is installing a plug-in. Try again.</translation>
    </message>
    <message>
        <source>Il file si chiama &quot;%1&quot;, ma contiene il plug-in %2. Dargli il nome &quot;%3&quot; e riprovare.</source>
        <translation>The file is called &quot;%1&quot;, but it holds the plug-in %2. Rename it to &quot;%3&quot; and try again.</translation>
    </message>
    <message>
        <source>%1 non è un pacchetto di plug-in</source>
        <translation>%1 is not a package of a plug-in</translation>
    </message>
    <message>
        <source>Il pacchetto contiene un file che non vi deve essere: %1</source>
        <translation>The package holds a file that must not be in it: %1</translation>
    </message>
    <message>
        <source>Il file %1 nel pacchetto è danneggiato o è stato cambiato. Procurarsi un&apos;altra copia del pacchetto.</source>
        <translation>The file %1 in the package is damaged or was changed. Get another copy of the package.</translation>
    </message>
    <message>
        <source>Nel pacchetto manca il file %1. Procurarsene un&apos;altra copia.</source>
        <translation>The file %1 is missing in the package. Get another copy of it.</translation>
    </message>
    <message>
        <source>La libreria nel pacchetto non è quella che il pacchetto dice (%1, Qt %2)</source>
        <translation>The library in the package is not what the package says (%1, Qt %2)</translation>
    </message>
    <message>
        <source>Installare il plug-in %1, versione %2?</source>
        <translation>Do you want to install the plug-in %1, version %2?</translation>
    </message>
    <message>
        <source>La versione %1, che è installata, viene sostituita.</source>
        <translation>It replaces version %1, which is installed.</translation>
    </message>
    <message>
        <source>Questi file sono stati modificati: vengono sostituiti, e come erano restano nella cartella &quot;%1&quot; del plug-in:<byte value="xd"/>
%2</source>
        <translation>These files were changed: they are replaced, and stay as they were in the folder &quot;%1&quot; of the plug-in:<byte value="xd"/>
%2</translation>
    </message>
    <message>
        <source>Un plug-in è un programma, e può fare tutto ciò che può fare chi lo installa: leggere, cambiare e cancellare i cataloghi e ogni altro file. Rispondere Sì soltanto se si conosce chi lo ha fatto, e ce ne si fida.</source>
        <translation>A plug-in is a program and can do whatever you can: read, change and delete your catalogs and every other file. Answer Yes only if you know who made it, and trust them.</translation>
    </message>
    <message>
        <source>Installazione completata con successo. Il nuovo plugin sarà disponibile al prossimo riavvio del programma.</source>
        <translation>Installation completed. New plugin will be available at the next software reboot.</translation>
    </message>
    <message>
        <source>Impossibile installare il plugin selezionato</source>
        <translation>Impossible to install selected plugin</translation>
    </message>
    <message>
        <source>Non è installato un programma di aggiornamento: una versione nuova si installa come questa.</source>
        <translation>No update programme is installed: a new version is installed the way this one was.</translation>
    </message>
    <message>
        <source>Le informazioni sul sistema non sono attualmente disponibili.</source>
        <translation>System info aren&apos;t available at this moment.</translation>
    </message>
    <message>
        <source>Informazioni su %1</source>
        <translation>Info about %1</translation>
    </message>
    <message>
        <source>&amp;Pausa</source>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>A&amp;vvia</source>
        <translation>&amp;Play</translation>
    </message>
    <message>
        <source>Programma</source>
        <translation>Program</translation>
    </message>
    <message>
        <source>Lingua</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>Sistema</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Lingua del sistema</source>
        <translation>Language of the system</translation>
    </message>
    <message>
        <source>Finestre</source>
        <translation>Windows</translation>
    </message>
    <message>
        <source>Cartelle</source>
        <translation>Folders</translation>
    </message>
    <message>
        <source>Cataloghi e immagini</source>
        <translation>Catalogs and pictures</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Database</translation>
    </message>
    <message>
        <source>Condizione</source>
        <translation>State</translation>
    </message>
    <message>
        <source>non è aperto</source>
        <translation>is not open</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>Versione dello schema</source>
        <translation>Version of the schema</translation>
    </message>
    <message>
        <source>Cataloghi</source>
        <translation>Catalogs</translation>
    </message>
    <message>
        <source>Immagini supplementari</source>
        <translation>Additional pictures</translation>
    </message>
    <message>
        <source>Schermi</source>
        <translation>Screens</translation>
    </message>
    <message>
        <source>Plug-in</source>
        <translation>Plug-ins</translation>
    </message>
    <message>
        <source>pubblico dominio</source>
        <translation>public domain</translation>
    </message>
    <message>
        <source>Librerie</source>
        <translation>Libraries</translation>
    </message>
    <message>
        <source>Qui stanno i cataloghi. Ognuno ha i suoi prodotti, le sue immagini e i nomi dei campi che servono a chi lo fa.</source>
        <translation>Here are the catalogs. Each one has its products, its pictures and fields with the names that you need.</translation>
    </message>
    <message>
        <source>Un catalogo nuovo nasce in quattro passi: il nome, i campi, i filtri, i dati dell&apos;azienda. Tutto si può cambiare anche dopo.</source>
        <translation>A new catalog takes four steps: its name, the fields, the filters, your company. All of it can be changed later.</translation>
    </message>
    <message>
        <source>Un doppio clic apre il catalogo: un prodotto per riga, come in un foglio di calcolo.</source>
        <translation>A double click opens a catalog: a row for each product, as in a spreadsheet.</translation>
    </message>
    <message>
        <source>Si scrive direttamente nella cella. La riga si salva da sola quando la si lascia, Esc la riporta com&apos;era.</source>
        <translation>Type right into a cell. A row is saved when you leave it; Esc brings back what it was.</translation>
    </message>
    <message>
        <source>Una cartella di fotografie diventa un catalogo: Importa fa di ogni file JPEG un prodotto, con l&apos;immagine già ridotta.</source>
        <translation>A folder of photographs becomes a catalog: Import makes a product of each JPEG file, with its picture in the right size.</translation>
    </message>
    <message>
        <source>Un clic sulla colonna dell&apos;immagine la mostra grande. Un file JPEG trascinato su una riga ne diventa l&apos;immagine.</source>
        <translation>A click on the column of pictures shows one large. Drop a JPEG file on a row, and it is that product&apos;s picture.</translation>
    </message>
    <message>
        <source>La scheda mostra un prodotto intero: testi, filtri, immagine, altre immagini e dati tecnici.</source>
        <translation>The card shows a whole product: texts, filters, its picture, further pictures and technical data.</translation>
    </message>
    <message>
        <source>L&apos;ordine in cui i prodotti si pubblicano si decide qui: si trascina la riga, per la striscia a sinistra, dove deve stare.</source>
        <translation>In which order products are published is decided here: drag a row, by the strip at its left, to where it belongs.</translation>
    </message>
    <message>
        <source>Pubblica mostra i plug-in installati. Se ne sceglie uno, poi la cartella in cui deve andare il risultato.</source>
        <translation>Publish shows the plug-ins that are installed. Choose one, and then the folder for the result.</translation>
    </message>
    <message>
        <source>Ecco fatto: il sito è pronto da guardare e da caricare. Alla prossima pubblicazione si rifà soltanto ciò che è cambiato.</source>
        <translation>Done: the site is ready to be looked at and uploaded. The next time only what has changed is made anew.</translation>
    </message>
    <message>
        <source>F1 spiega la finestra in cui ci si trova. Da questo menu si rivede anche il tour. Buon lavoro!</source>
        <translation>F1 explains the window that you are in. This menu also shows the tour again. Enjoy your work!</translation>
    </message>
    <message>
        <source>Impossibile avviare il programma di aggiornamento %1</source>
        <translation>The update programme %1 could not be started</translation>
    </message>
    <message>
        <source>Aiuto sulla finestra in uso</source>
        <translation>Help on the window in use</translation>
    </message>
    <message>
        <source>Nessuna pagina trovata</source>
        <translation>No page found</translation>
    </message>
    <message>
        <source>%1 pagina trovata</source>
        <translation>%1 page found</translation>
    </message>
    <message>
        <source>%1 pagine trovate</source>
        <translation>%1 pages found</translation>
    </message>
    <message>
        <source>Non trovato</source>
        <translation>Not found</translation>
    </message>
    <message>
        <source>Indietro</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>Torna alla pagina di prima</source>
        <translation>Go back to the page before</translation>
    </message>
    <message>
        <source>Avanti</source>
        <translation>Forward</translation>
    </message>
    <message>
        <source>Torna alla pagina che seguiva</source>
        <translation>Go on to the page that followed</translation>
    </message>
    <message>
        <source>Inizio</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>Prima pagina dell&apos;aiuto</source>
        <translation>First page of the help</translation>
    </message>
    <message>
        <source>Trova nella pagina</source>
        <translation>Find on page</translation>
    </message>
    <message>
        <source>Cerca un testo nella pagina che si legge</source>
        <translation>Find a text on the page that is shown</translation>
    </message>
    <message>
        <source>A-</source>
        <translation>A-</translation>
    </message>
    <message>
        <source>Caratteri più piccoli</source>
        <translation>Smaller letters</translation>
    </message>
    <message>
        <source>A+</source>
        <translation>A+</translation>
    </message>
    <message>
        <source>Caratteri più grandi</source>
        <translation>Larger letters</translation>
    </message>
    <message>
        <source>Altra lingua</source>
        <translation>Other language</translation>
    </message>
    <message>
        <source>Mostra questa pagina nell&apos;altra lingua</source>
        <translation>Show this page in the other language</translation>
    </message>
    <message>
        <source>Impossibile aprire l&apos;aiuto %1: %2</source>
        <translation>Cannot open the help %1: %2</translation>
    </message>
    <message>
        <source>Quel che c&apos;è resta comunque in %1.</source>
        <translation>What is there stays in %1 all the same.</translation>
    </message>
    <message>
        <source>Scegliere un&apos;altra copia di sicurezza.</source>
        <translation>Choose another backup.</translation>
    </message>
    <message>
        <source>Ripristinare una copia di sicurezza.</source>
        <translation>Restore a backup.</translation>
    </message>
    <message>
        <source>Impossibile ripristinare %1.</source>
        <translation>%1 cannot be restored.</translation>
    </message>
    <message>
        <source>Sostituisce i dati di tutti i cataloghi. Le immagini restano quelle che ci sono: quelle eliminate dopo mancheranno, e di quelle cambiate dopo si vedranno le nuove.</source>
        <translation>It replaces the data of all catalogs. The pictures stay as they are: those that were deleted later will be missing, and of those that were changed later the new ones will be seen.</translation>
    </message>
    <message>
        <source>L&apos;installazione del plug-in %1 è stata interrotta e non può essere completata. Cancellare la cartella %2 e installarlo di nuovo.</source>
        <translation>The installation of the plug-in %1 was interrupted and cannot be completed. Delete the folder %2 and install the plug-in again.</translation>
    </message>
    <message>
        <source>%1 è nascosto, o un collegamento: un pacchetto contiene soltanto file veri</source>
        <translation>%1 is hidden or a link: a package holds real files only</translation>
    </message>
    <message>
        <source>Prende il posto di quello che è stato installato insieme al programma.</source>
        <translation>It takes the place of the one that came with the program.</translation>
    </message>
    <message>
        <source>È già installato il plug-in %1, il cui nome differisce da %2 soltanto per maiuscole e minuscole. Procurarsi un pacchetto con lo stesso nome.</source>
        <translation>The plug-in %1 is installed already. Its name and %2 differ in upper and lower case alone. Obtain a package with the same name.</translation>
    </message>
    <message>
        <source>Non si trova un programma di posta elettronica. L&apos;indirizzo è %1</source>
        <translation>There is no e-mail program. The address is %1</translation>
    </message>
    <message>
        <source>Il database di adesso resta nella cartella %1 fino al prossimo ripristino, e anche tra le copie automatiche. Le finestre dei cataloghi si chiudono.</source>
        <translation>The present database stays in the folder %1 until the next restore, and also among the automatic copies. The windows of the catalogs will close.</translation>
    </message>
    <message>
        <source>Apri il menu dei cataloghi</source>
        <translation>Open the menu of the catalogs</translation>
    </message>
    <message>
        <source>Non ci sono ancora copie automatiche.</source>
        <translation>There are no automatic copies yet.</translation>
    </message>
    <message>
        <source>La lingua è Italian o English, o per ciò che si pubblica una di %1</source>
        <translation>The language is Italian or English, or for what is published one of %1</translation>
    </message>
    <message>
        <source>Uso: vorlina-batch COMANDO [OPZIONI]

Comandi:
  catalogs                 elenca i cataloghi
  plugins                  elenca i plug-in di pubblicazione
  publish --catalog ID --plugin IDENT --to DOVE [--profile NOME]
                           pubblica un catalogo in una cartella, o nel file che il plug-in fa, come dice un suo
                           profilo; va nominato dove ne ha più d&apos;uno
  import CARTELLA --catalog ID
                           fa un prodotto di ogni immagine &quot;.jpg&quot; della cartella
  clone --catalog ID       duplica un catalogo con le sue immagini
  delete --catalog ID --yes
                           elimina un catalogo con le sue immagini; --yes dice che è voluto. Come per import,
                           prima si tiene in &quot;Backups&quot; una copia del database; con --without-copy no
  check                    controlla il database e le immagini; 1 se è stato trovato un danno, 0 se si tratta
                           solo di note, come un file che nessuna riga usa
  backup FILE [--allow-missing]
                           salva database, immagini e layout in un archivio; con --allow-missing anche se
                           mancano immagini
  restore FILE --yes       li sostituisce con quelli di un archivio; --yes dice che è voluto. Quel che c&apos;era
                           prima resta in &quot;Before restore&quot; fino al prossimo ripristino. Di una copia in
                           &quot;Backups&quot; sostituisce il solo database

Opzioni:
  --app CARTELLA           usa un&apos;altra cartella dell&apos;applicazione
  --language LINGUA        Italian o English, per i messaggi e per ciò che si pubblica; it, en, de, fr o es
                           solo per ciò che si pubblica
  --json                   un oggetto JSON al posto del testo
  --help                   mostra questo aiuto
  --version                mostra la versione

Codici di uscita: 0 riuscito, 1 non riuscito, 2 riga di comando errata.
</source>
        <translation>Usage: vorlina-batch COMMAND [OPTIONS]

Commands:
  catalogs                 lists the catalogs
  plugins                  lists the publishing plug-ins
  publish --catalog ID --plugin IDENT --to WHERE [--profile NAME]
                           publishes a catalog into a folder, or the file that the plug-in makes, as one of its
                           profiles says; it has to be named where there are several
  import FOLDER --catalog ID
                           makes a product of each picture &quot;.jpg&quot; in the folder
  clone --catalog ID       clones a catalog with its pictures
  delete --catalog ID --yes
                           deletes a catalog with its pictures; --yes says that this is meant. As before
                           import, a copy of the database is kept in &quot;Backups&quot; first, but for
                           --without-copy
  check                    checks the database and the pictures; 1 when damage was found, 0 when there are only
                           notes, such as a file that no row uses
  backup FILE [--allow-missing]
                           saves database, pictures and layouts in one archive; with --allow-missing also when
                           pictures are missing
  restore FILE --yes       replaces them by those of an archive; --yes says that this is meant. What was there
                           before stays in &quot;Before restore&quot; until the next restore. Of a copy in
                           &quot;Backups&quot; the database alone is replaced

Options:
  --app DIR                works on another application folder
  --language LANGUAGE      Italian or English, for the messages and for what is published; it, en, de, fr or es
                           for what is published alone
  --json                   one JSON object instead of text
  --help                   shows this help
  --version                shows the version

Exit codes: 0 succeeded, 1 did not succeed, 2 wrong command line.
</translation>
    </message>
    <message>
        <source>Il catalogo %1 ha più profili; nominarne uno con --profile: %2</source>
        <translation>Catalog %1 has several profiles; name one with --profile: %2</translation>
    </message>
    <message>
        <source>%1 è una cartella, e il plug-in fa un file</source>
        <translation>%1 is a folder, and the plug-in makes a file</translation>
    </message>
    <message>
        <source>Pubblicazione interrotta. %1 è com&apos;era.</source>
        <translation>Publishing was stopped. %1 is as it was.</translation>
    </message>
    <message>
        <source>La lingua è una di queste: %1</source>
        <translation>The language is one of these: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; non è un indirizzo web come https://www.example.it/catalogo/</source>
        <translation>&quot;%1&quot; is no web address such as https://www.example.com/catalog/</translation>
    </message>
    <message>
        <source>Il nome del profilo ha più di %1 caratteri</source>
        <translation>The name of the profile has more than %1 characters</translation>
    </message>
    <message>
        <source>Gli orari hanno più di %1 caratteri</source>
        <translation>The opening hours have more than %1 characters</translation>
    </message>
    <message>
        <source>Più di %1 cataloghi in altre lingue</source>
        <translation>More than %1 catalogs in other languages</translation>
    </message>
    <message>
        <source>&quot;%1&quot; non è un colore della forma #rrggbb</source>
        <translation>&quot;%1&quot; is no colour of the form #rrggbb</translation>
    </message>
    <message>
        <source>Il carattere è sans, serif o mono</source>
        <translation>The font is sans, serif or mono</translation>
    </message>
    <message>
        <source>Il prezzo è uno dei tre valori, o nessuno</source>
        <translation>The price is one of the three values, or none</translation>
    </message>
    <message>
        <source>Le misure delle immagini sono al più %1, ognuna da %2 a %3 pixel</source>
        <translation>There are at most %1 picture sizes, each from %2 to %3 pixels</translation>
    </message>
    <message>
        <source>I profili di pubblicazione del catalogo sono danneggiati e non si possono leggere</source>
        <translation>The catalog&apos;s publishing profiles are damaged and cannot be read</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>C&apos;è già un profilo di nome &quot;%1&quot;</source>
        <translation>There is a profile named &quot;%1&quot; already</translation>
    </message>
    <message>
        <source>Il catalogo %1 non ha un profilo &quot;%2&quot;. Ci sono: %3</source>
        <translation>Catalog %1 has no profile &quot;%2&quot;. There are: %3</translation>
    </message>
    <message>
        <source>Profilo di pubblicazione %1</source>
        <translation>Publishing profile %1</translation>
    </message>
    <message>
        <source>Ci sono già %1 profili</source>
        <translation>There are %1 profiles already</translation>
    </message>
    <message>
        <source>Eliminazione di un profilo</source>
        <translation>Deletion of a profile</translation>
    </message>
    <message>
        <source>È l&apos;unico profilo del catalogo e non si può eliminare</source>
        <translation>It is the only profile of the catalog and cannot be deleted</translation>
    </message>
    <message>
        <source>Nuovi profili di pubblicazione</source>
        <translation>New publishing profiles</translation>
    </message>
    <message>
        <source>Altre note: %1</source>
        <translation>More notes: %1</translation>
    </message>
    <message>
        <source>Senza immagine</source>
        <translation>Without a picture</translation>
    </message>
    <message>
        <source>Senza descrizione</source>
        <translation>Without a description</translation>
    </message>
    <message>
        <source>Con un numero d&apos;ordine doppio</source>
        <translation>With a double order number</translation>
    </message>
    <message>
        <source>Con un&apos;immagine che non si può pubblicare</source>
        <translation>With a picture that cannot be published</translation>
    </message>
    <message>
        <source>Altro</source>
        <translation>Other</translation>
    </message>
    <message>
        <source>Pagine: %1. Immagini: %2. In tutto: %3.</source>
        <translation>Pages: %1. Pictures: %2. In all: %3.</translation>
    </message>
    <message>
        <source>Non è cambiato nulla rispetto a ciò che c&apos;era.</source>
        <translation>Nothing has changed against what was there.</translation>
    </message>
    <message>
        <source>File nuovi: %1, cambiati: %2, tolti: %3.</source>
        <translation>New files: %1, changed: %2, removed: %3.</translation>
    </message>
    <message>
        <source>Preparazione delle immagini</source>
        <translation>Preparing the pictures</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Scelti: %1.</source>
        <translation>Chosen: %1.</translation>
    </message>
    <message>
        <source>Senza immagine: %1, che nella prima pagina non si vedono.</source>
        <translation>Without a picture: %1, which do not show on the first page.</translation>
    </message>
    <message>
        <source>Impossibile creare una cartella per l&apos;anteprima: %1</source>
        <translation>Cannot make a folder for the preview: %1</translation>
    </message>
    <message>
        <source>Cominciare da capo con un profilo nuovo, che mostra tutto?</source>
        <translation>Begin anew with a new profile, which shows everything?</translation>
    </message>
    <message>
        <source>Pubblica %1</source>
        <translation>Publish %1</translation>
    </message>
    <message>
        <source>Catalogo</source>
        <translation>Catalog</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>F&amp;ile:</translation>
    </message>
    <message>
        <source>Pubblicando di nuovo viene sostituito.</source>
        <translation>It is replaced when you publish again.</translation>
    </message>
    <message>
        <source>Nuovo profilo</source>
        <translation>New profile</translation>
    </message>
    <message>
        <source>%1 (copia)</source>
        <translation>%1 (copy)</translation>
    </message>
    <message>
        <source>Duplica il profilo</source>
        <translation>Duplicate the profile</translation>
    </message>
    <message>
        <source>Rinomina il profilo</source>
        <translation>Rename the profile</translation>
    </message>
    <message>
        <source>Nome del profilo, per esempio &quot;Rivenditori, con i prezzi&quot;:</source>
        <translation>Name of the profile, such as &quot;Dealers, with prices&quot;:</translation>
    </message>
    <message>
        <source>Un profilo ha bisogno di un nome.</source>
        <translation>A profile needs a name.</translation>
    </message>
    <message>
        <source>Eliminare il profilo &quot;%1&quot;? Ciò che è già pubblicato resta com&apos;è.</source>
        <translation>Delete the profile &quot;%1&quot;? What is already published stays as it is.</translation>
    </message>
    <message>
        <source>File da pubblicare</source>
        <translation>File to be published</translation>
    </message>
    <message>
        <source>Cartella da pubblicare</source>
        <translation>Folder to be published</translation>
    </message>
    <message>
        <source>Scrivere il percorso intero, oppure sceglierlo con Sfoglia.</source>
        <translation>Type the whole path, or choose it with Browse.</translation>
    </message>
    <message>
        <source>La pubblicazione è pronta, ma non è stato ricordato dove si trova. %1</source>
        <translation>The publication is ready, but where it is was not remembered. %1</translation>
    </message>
    <message>
        <source>Il profilo &quot;%1&quot; è stato modificato. Salvarlo?</source>
        <translation>The profile &quot;%1&quot; was changed. Save it?</translation>
    </message>
    <message>
        <source>senza immagine</source>
        <translation>no picture</translation>
    </message>
    <message>
        <source>Non si trova un programma per aprire %1</source>
        <translation>No program to open %1 is found</translation>
    </message>
    <message>
        <source>Scegli...</source>
        <translation>Choose...</translation>
    </message>
    <message>
        <source>Scegli: %1</source>
        <translation>Choose: %1</translation>
    </message>
    <message>
        <source>Togli</source>
        <translation>Remove</translation>
    </message>
    <message>
        <source>Togli: %1</source>
        <translation>Remove: %1</translation>
    </message>
    <message>
        <source>%1 non c&apos;è più</source>
        <translation>%1 is gone</translation>
    </message>
    <message>
        <source>Immagini JPEG|*.jpg;*.jpeg</source>
        <translation>JPEG pictures|*.jpg;*.jpeg</translation>
    </message>
    <message>
        <source>Il plug-in ha lasciato aperta una transazione. Chiedere una versione corretta a chi ha fatto il plug-in.</source>
        <translation>The plug-in has left a transaction open. Ask its maker for a corrected version.</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>quello del catalogo</source>
        <translation>the catalog&apos;s</translation>
    </message>
    <message>
        <source>Immagine larga</source>
        <translation>Wide picture</translation>
    </message>
    <message>
        <source>quella del primo prodotto in evidenza</source>
        <translation>that of the first highlight</translation>
    </message>
    <message>
        <source>Automatico: %1</source>
        <translation>Automatic: %1</translation>
    </message>
    <message>
        <source>Normali: %1 pixel</source>
        <translation>Normal: %1 pixels</translation>
    </message>
    <message>
        <source>Piccole, per pagine più leggere: %1 pixel</source>
        <translation>Small, for lighter pages: %1 pixels</translation>
    </message>
    <message>
        <source>Grandi, per schermi più nitidi: %1 pixel</source>
        <translation>Large, for sharper screens: %1 pixels</translation>
    </message>
    <message>
        <source>Della skin</source>
        <translation>The skin&apos;s</translation>
    </message>
    <message>
        <source>Colore</source>
        <translation>Colour</translation>
    </message>
    <message>
        <source>nessuno scelto</source>
        <translation>none chosen</translation>
    </message>
    <message>
        <source>scelti: %1</source>
        <translation>chosen: %1</translation>
    </message>
    <message>
        <source>%1 pixel</source>
        <translation>%1 pixels</translation>
    </message>
    <message>
        <source>Pubblicazione</source>
        <translation>Publication</translation>
    </message>
    <message>
        <source>È proposta in base ai testi del catalogo: controllarla.
Anche titoli e pulsanti saranno in questa lingua.</source>
        <translation>Proposed from the catalog&apos;s texts: please check it.
Headings and buttons will be in this language too.</translation>
    </message>
    <message>
        <source>Il profilo &quot;%1&quot; è stato modificato o eliminato da un altro programma.</source>
        <translation>The profile &quot;%1&quot; was changed or deleted by another program.</translation>
    </message>
    <message>
        <source>Le modifiche fatte qui non sono salvate: annullare e aprire di nuovo la finestra.</source>
        <translation>The changes made here are not saved: cancel, and open the window again.</translation>
    </message>
    <message>
        <source>La finestra mostra ora ciò che c&apos;è: controllare e ripetere.</source>
        <translation>The window shows what there is: please check it and try again.</translation>
    </message>
    <message>
        <source>Nessun prezzo in grande</source>
        <translation>No large price</translation>
    </message>
    <message>
        <source>Automatico: nessun valore che si vede ha il nome di un prezzo</source>
        <translation>Automatic: no value that shows is named like a price</translation>
    </message>
    <message>
        <source>%1 (non si vede)</source>
        <translation>%1 (does not show)</translation>
    </message>
    <message>
        <source>Nessun prodotto trovato.</source>
        <translation>No product was found.</translation>
    </message>
    <message>
        <source>%1 è un file: scegliere una cartella.</source>
        <translation>%1 is a file: please choose a folder.</translation>
    </message>
    <message>
        <source>La pubblicazione resterebbe senza immagini, e nulla è stato fatto.</source>
        <translation>The publication would be without pictures, and nothing was done.</translation>
    </message>
    <message>
        <source>Nessun prodotto è pubblicato.</source>
        <translation>No product is published.</translation>
    </message>
    <message>
        <source>I prodotti in evidenza sono cambiati. Tenere la nuova scelta?</source>
        <translation>The highlights were changed. Keep the new choice?</translation>
    </message>
    <message>
        <source>Catalogo: %1. Profilo: %2.</source>
        <translation>Catalog: %1. Profile: %2.</translation>
    </message>
    <message>
        <source>Pubblicare lo stesso, senza le immagini dei prodotti?</source>
        <translation>Publish all the same, without the products&apos; pictures?</translation>
    </message>
    <message>
        <source>La cartella delle immagini %1 non esiste.</source>
        <translation>The folder of pictures %1 does not exist.</translation>
    </message>
    <message>
        <source>La cartella delle immagini %1 non si può leggere.</source>
        <translation>The folder of pictures %1 cannot be read.</translation>
    </message>
    <message>
        <source>Nella cartella %1 manca ogni immagine dei prodotti pubblicati, per esempio %2.</source>
        <translation>In the folder %1 every picture of the published products is missing, such as %2.</translation>
    </message>
    <message>
        <source>L&apos;indirizzo &quot;%1&quot; ha più di %2 caratteri</source>
        <translation>The address &quot;%1&quot; has more than %2 characters</translation>
    </message>
    <message>
        <source>L&apos;indirizzo &quot;%1&quot; non comincia con https:// o http://</source>
        <translation>The address &quot;%1&quot; does not begin with https:// or http://</translation>
    </message>
    <message>
        <source>L&apos;indirizzo &quot;%1&quot; non può contenere &quot;%2&quot;</source>
        <translation>The address &quot;%1&quot; cannot hold &quot;%2&quot;</translation>
    </message>
    <message>
        <source>Nella cartella %1 non si può creare nulla. Controllare i permessi, o scegliere un&apos;altra cartella.</source>
        <translation>Nothing can be made in the folder %1. Check the permissions, or choose another folder.</translation>
    </message>
    <message>
        <source>Nella cartella %1 non si è potuto scrivere: le immagini per il web sono state preparate in una cartella temporanea, e la prossima volta lo saranno di nuovo.</source>
        <translation>The folder %1 could not be written: the pictures for the web were made in a temporary folder, and will be made again the next time.</translation>
    </message>
    <message>
        <source>Resoconto c&amp;opiato</source>
        <translation>&amp;Report copied</translation>
    </message>
</context>
<context>
    <name>Wizard</name>
    <message>
        <source>Avanti &gt;&gt;</source>
        <translation>&amp;Next &gt;&gt;</translation>
    </message>
    <message>
        <source>&lt;&lt; Indietro</source>
        <translation>&lt;&lt; &amp;Back</translation>
    </message>
    <message>
        <source>Fine</source>
        <translation>&amp;Finish</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Aiuto ?</source>
        <translation>Help &amp;?</translation>
    </message>
    <message>
        <source>Dati generali del catalogo: vengono qui inseriti i dati che caratterizzano il catalogo come ad esempio la denominazione dei campi di descrizione da mostrare insieme ai prodotti</source>
        <translation>Insert here general data for the catalog like title, description and products fields name</translation>
    </message>
    <message>
        <source>Impostazione dei campi di filtraggio: è possibile impostare la denominazione dei campi caratteristici che serviranno per eseguire operazioni di filtraggio sui dati da parte dell&apos;utente del catalogo</source>
        <translation>Insert here up to five fields name to be used as search filter by the user</translation>
    </message>
    <message>
        <source>Generazione catalogo completata: sarà ora possibile inserire i valori per i campi di filtraggio e i dati dei prodotti da inserire nel catalogo</source>
        <translation>Catalog generation completed: now you can insert new values for filtering fileds  and products data</translation>
    </message>
    <message>
        <source>Informazioni Aziendali: inserire le informazioni aziendali in modo da dare agli utenti del catalogo tutti i vostri recapiti</source>
        <translation>Insert here the company information to be used by the user to contact you</translation>
    </message>
</context>
<context>
    <name>vorlina::frmAbout</name>
    <message>
        <source>Vorlina</source>
        <translation>Vorlina</translation>
    </message>
    <message>
        <source>Copyright © 2026 Norsel. Il programma è fornito così com&apos;è, senza garanzie. I cataloghi, le immagini e i siti pubblicati appartengono a chi li fa.</source>
        <translation>Copyright © 2026 Norsel. The program is provided as it is, without any warranty. Catalogs, pictures and published sites belong to those who make them.</translation>
    </message>
    <message>
        <source>&amp;System Info...</source>
        <translation>&amp;System Info...</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>vorlina::frmAdvancedEdit</name>
    <message>
        <source>Modifica caratteristica</source>
        <translation>Change feature</translation>
    </message>
    <message>
        <source>Caratteristica</source>
        <translation>Feature</translation>
    </message>
    <message>
        <source>Valore</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>&amp;Ok</source>
        <translation>&amp;Ok</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Cancel</translation>
    </message>
</context>
<context>
    <name>vorlina::frmBackups</name>
    <message>
        <source>Ripristina una copia di sicurezza</source>
        <translation>Restore a backup</translation>
    </message>
    <message>
        <source>&amp;Tornare a com&apos;era prima di:</source>
        <translation>&amp;Go back to how it was before:</translation>
    </message>
    <message>
        <source>Copie tenute dal programma</source>
        <translation>Copies kept by the program</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Prima di</source>
        <translation>Before</translation>
    </message>
    <message>
        <source>Contiene</source>
        <translation>Holds</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>Scegli un &amp;file...</source>
        <translation>Choose a &amp;file...</translation>
    </message>
    <message>
        <source>&amp;Ripristina</source>
        <translation>&amp;Restore</translation>
    </message>
    <message>
        <source>&amp;Annulla</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Una copia automatica contiene solo il database: le immagini di un catalogo eliminato tornano solo da una copia di sicurezza intera. Questa si sceglie come file.</source>
        <translation>An automatic copy holds the database alone: the pictures of a deleted catalog come back only from a whole backup. That one is chosen as a file.</translation>
    </message>
</context>
<context>
    <name>vorlina::frmCatalog</name>
    <message>
        <source>Proprietà catalogo</source>
        <translation>Catalog properties</translation>
    </message>
    <message>
        <source>Nome catalogo</source>
        <translation>Catalog name</translation>
    </message>
    <message>
        <source>Descrizione catalogo</source>
        <translation>Catalog description</translation>
    </message>
    <message>
        <source>Valori</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>Nome valore</source>
        <translation>Value name</translation>
    </message>
    <message>
        <source>Nome valore 1</source>
        <translation>Value name 1</translation>
    </message>
    <message>
        <source>Nome valore 2</source>
        <translation>Value name 2</translation>
    </message>
    <message>
        <source>Nome valore 3</source>
        <translation>Value name 3</translation>
    </message>
    <message>
        <source>Filtri</source>
        <translation>Filters</translation>
    </message>
    <message>
        <source>Nome filtro</source>
        <translation>Filter name</translation>
    </message>
    <message>
        <source>Nome filtro 1</source>
        <translation>Filter name 1</translation>
    </message>
    <message>
        <source>Nome filtro 2</source>
        <translation>Filter name 2</translation>
    </message>
    <message>
        <source>Nome filtro 3</source>
        <translation>Filter name 3</translation>
    </message>
    <message>
        <source>Nome filtro 4</source>
        <translation>Filter name 4</translation>
    </message>
    <message>
        <source>Nome filtro 5</source>
        <translation>Filter name 5</translation>
    </message>
    <message>
        <source>Informazioni società</source>
        <translation>Company info</translation>
    </message>
    <message>
        <source>Nome società</source>
        <translation>Company name</translation>
    </message>
    <message>
        <source>Indirizzo</source>
        <translation>Address</translation>
    </message>
    <message>
        <source>Città</source>
        <translation>City</translation>
    </message>
    <message>
        <source>Pr.</source>
        <translation>Prov./State</translation>
    </message>
    <message>
        <source>Cap</source>
        <translation>Zip code</translation>
    </message>
    <message>
        <source>Stato</source>
        <translation>Country</translation>
    </message>
    <message>
        <source>Tel.</source>
        <translation>Tel.</translation>
    </message>
    <message>
        <source>Fax.</source>
        <translation>Fax.</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>E-mail</translation>
    </message>
    <message>
        <source>Sito Internet</source>
        <translation>Web site</translation>
    </message>
    <message>
        <source>Informazioni aggiuntive</source>
        <translation>Additional info</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>Larghezza del logo in pixel</source>
        <translation>Width of the logo in pixels</translation>
    </message>
    <message>
        <source>Altezza del logo in pixel</source>
        <translation>Height of the logo in pixels</translation>
    </message>
    <message>
        <source>Sfoglia...</source>
        <translation>Browse...</translation>
    </message>
    <message>
        <source>Informazioni catalogo</source>
        <translation>Catalog Info</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Sottotitolo</source>
        <translation>Subtitle</translation>
    </message>
    <message>
        <source>Informazioni sul catalogo</source>
        <translation>Catalog info</translation>
    </message>
</context>
<context>
    <name>vorlina::frmCatalogs</name>
    <message>
        <source>Vorlina - Cataloghi</source>
        <translation>Vorlina - Catalogs</translation>
    </message>
    <message>
        <source>Cataloghi disponibili</source>
        <translation>Available catalogs</translation>
    </message>
    <message>
        <source>&amp;Nuovo</source>
        <translation>&amp;New</translation>
    </message>
    <message>
        <source>&amp;Modifica</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>&amp;Elimina</source>
        <translation>&amp;Delete</translation>
    </message>
    <message>
        <source>&amp;Pubblica</source>
        <translation>&amp;Publish</translation>
    </message>
    <message>
        <source>Filtri disponibili</source>
        <translation>Available filters</translation>
    </message>
    <message>
        <source>Dettagli</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Fare clic su un filtro per leggerne la descrizione.</source>
        <translation>Click a filter to read its description.</translation>
    </message>
    <message>
        <source>&lt;&lt; &amp;Indietro</source>
        <translation>&lt;&lt; &amp;Back</translation>
    </message>
    <message>
        <source>Fare doppio clic per pubblicare</source>
        <translation>Double click to publish</translation>
    </message>
    <message>
        <source>Comandi</source>
        <translation>Commands</translation>
    </message>
</context>
<context>
    <name>vorlina::frmEditCatalog</name>
    <message>
        <source>Modifica catalogo</source>
        <translation>Edit catalog</translation>
    </message>
    <message>
        <source>Prodotti</source>
        <translation>Products</translation>
    </message>
    <message>
        <source>Comandi</source>
        <translation>Commands</translation>
    </message>
</context>
<context>
    <name>vorlina::frmFilterData</name>
    <message>
        <source>Dati del filtro</source>
        <translation>Filter Data</translation>
    </message>
    <message>
        <source>Nome filtro</source>
        <translation>Filter name</translation>
    </message>
    <message>
        <source>Valori del filtro</source>
        <translation>Filter values</translation>
    </message>
</context>
<context>
    <name>vorlina::frmHelp</name>
    <message>
        <source>Aiuto di Vorlina</source>
        <translation>Vorlina Help</translation>
    </message>
    <message>
        <source>&amp;Sommario</source>
        <translation>&amp;Contents</translation>
    </message>
    <message>
        <source>Sommario</source>
        <translation>Contents</translation>
    </message>
    <message>
        <source>I&amp;ndice</source>
        <translation>I&amp;ndex</translation>
    </message>
    <message>
        <source>Parola dell&apos;indice</source>
        <translation>Word of the index</translation>
    </message>
    <message>
        <source>Indice</source>
        <translation>Index</translation>
    </message>
    <message>
        <source>&amp;Cerca</source>
        <translation>&amp;Search</translation>
    </message>
    <message>
        <source>Parole da cercare nell&apos;aiuto</source>
        <translation>Words to be sought in the help</translation>
    </message>
    <message>
        <source>Parole da cercare</source>
        <translation>Words to be sought</translation>
    </message>
    <message>
        <source>Pagine trovate</source>
        <translation>Pages found</translation>
    </message>
    <message>
        <source>Pagina dell&apos;aiuto</source>
        <translation>Page of the help</translation>
    </message>
    <message>
        <source>Trova nella pagina:</source>
        <translation>Find on page:</translation>
    </message>
    <message>
        <source>Trova nella pagina</source>
        <translation>Find on page</translation>
    </message>
    <message>
        <source>&amp;Precedente</source>
        <translation>&amp;Previous</translation>
    </message>
    <message>
        <source>Successi&amp;vo</source>
        <translation>Ne&amp;xt</translation>
    </message>
    <message>
        <source>Comandi</source>
        <translation>Commands</translation>
    </message>
</context>
<context>
    <name>vorlina::frmHighlights</name>
    <message>
        <source>Prodotti in evidenza</source>
        <translation>Highlights</translation>
    </message>
    <message>
        <source>&amp;Cerca:</source>
        <translation>&amp;Find:</translation>
    </message>
    <message>
        <source>codice o descrizione</source>
        <translation>code or description</translation>
    </message>
    <message>
        <source>&amp;Solo i prodotti scelti</source>
        <translation>&amp;Chosen products only</translation>
    </message>
    <message>
        <source>Prodotti pubblicati</source>
        <translation>Published products</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>vorlina::frmImage</name>
    <message>
        <source>Immagine</source>
        <translation>Image</translation>
    </message>
</context>
<context>
    <name>vorlina::frmImageViewer</name>
    <message>
        <source>Visualizza immagini</source>
        <translation>Catalog images</translation>
    </message>
    <message>
        <source>&lt;&lt;</source>
        <translation>&lt;&lt;</translation>
    </message>
    <message>
        <source>Prima pagina</source>
        <translation>First page</translation>
    </message>
    <message>
        <source>&lt;</source>
        <translation>&lt;</translation>
    </message>
    <message>
        <source>Pagina precedente</source>
        <translation>Previous page</translation>
    </message>
    <message>
        <source>&gt;</source>
        <translation>&gt;</translation>
    </message>
    <message>
        <source>Pagina successiva</source>
        <translation>Next page</translation>
    </message>
    <message>
        <source>&gt;&gt;</source>
        <translation>&gt;&gt;</translation>
    </message>
    <message>
        <source>Ultima pagina</source>
        <translation>Last page</translation>
    </message>
</context>
<context>
    <name>vorlina::frmImages</name>
    <message>
        <source>Immagini prodotto</source>
        <translation>Product images</translation>
    </message>
    <message>
        <source>Comandi</source>
        <translation>Commands</translation>
    </message>
</context>
<context>
    <name>vorlina::frmKeys</name>
    <message>
        <source>Tasti e scorciatoie</source>
        <translation>Keys and shortcuts</translation>
    </message>
    <message>
        <source>Tasti</source>
        <translation>Keys</translation>
    </message>
    <message>
        <source>Che cosa fanno</source>
        <translation>What they do</translation>
    </message>
    <message>
        <source>&amp;Copia</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>C&amp;hiudi</source>
        <translation>C&amp;lose</translation>
    </message>
</context>
<context>
    <name>vorlina::frmLeftOut</name>
    <message>
        <source>File non importati</source>
        <translation>Files that were not imported</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Motivo</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>&amp;Copia</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>C&amp;hiudi</source>
        <translation>C&amp;lose</translation>
    </message>
</context>
<context>
    <name>vorlina::frmNewCatalog</name>
    <message>
        <source>Creazione nuovo catalogo</source>
        <translation>New catalog creation</translation>
    </message>
    <message>
        <source>Nome</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Descrizione</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>1° Valore</source>
        <translation>1st Value</translation>
    </message>
    <message>
        <source>2° Valore</source>
        <translation>2nd Value</translation>
    </message>
    <message>
        <source>3° Valore</source>
        <translation>3rd Value</translation>
    </message>
    <message>
        <source>1° Filtro</source>
        <translation>1st Filter</translation>
    </message>
    <message>
        <source>2° Filtro</source>
        <translation>2nd Filter</translation>
    </message>
    <message>
        <source>3° Filtro</source>
        <translation>3rd Filter</translation>
    </message>
    <message>
        <source>4° Filtro</source>
        <translation>4th Filter</translation>
    </message>
    <message>
        <source>5° Filtro</source>
        <translation>5th Filter</translation>
    </message>
    <message>
        <source>Nome società</source>
        <translation>Company name</translation>
    </message>
    <message>
        <source>Indirizzo</source>
        <translation>Address</translation>
    </message>
    <message>
        <source>Città</source>
        <translation>City</translation>
    </message>
    <message>
        <source>Pr.</source>
        <translation>Prov./State</translation>
    </message>
    <message>
        <source>Cap</source>
        <translation>Zip code</translation>
    </message>
    <message>
        <source>Stato</source>
        <translation>Country</translation>
    </message>
    <message>
        <source>Tel.</source>
        <translation>Tel.</translation>
    </message>
    <message>
        <source>Fax.</source>
        <translation>Fax.</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>E-mail</translation>
    </message>
    <message>
        <source>Sito Internet</source>
        <translation>Web site</translation>
    </message>
    <message>
        <source>Informazioni aggiuntive</source>
        <translation>Additional information</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>Sfoglia...</source>
        <translation>Browse...</translation>
    </message>
    <message>
        <source>Aggiungi dati al catalogo appena creato</source>
        <translation>Add data to the catalog</translation>
    </message>
    <message>
        <source>Crea un altro catalogo</source>
        <translation>Create another catalog</translation>
    </message>
    <message>
        <source>Torna al menù principale</source>
        <translation>Back to main menu</translation>
    </message>
    <message>
        <source>Aiuto ?</source>
        <translation>Help &amp;?</translation>
    </message>
    <message>
        <source>&lt;&lt; Indietro</source>
        <translation>&lt;&lt; &amp;Back</translation>
    </message>
    <message>
        <source>Avanti &gt;&gt;</source>
        <translation>&amp;Next &gt;&gt;</translation>
    </message>
    <message>
        <source>Fine</source>
        <translation>&amp;Finish</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>&amp;Cancel</translation>
    </message>
</context>
<context>
    <name>vorlina::frmOptions</name>
    <message>
        <source>Opzioni</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Aggiornamenti</source>
        <translation>Updates</translation>
    </message>
    <message>
        <source>Imposta le opzioni per l&apos;aggiornamento automatico</source>
        <translation>Set automatic updates settings</translation>
    </message>
    <message>
        <source>Unità CD ROM</source>
        <translation>CD-ROM Unit</translation>
    </message>
    <message>
        <source>Locazione remota</source>
        <translation>Remote host</translation>
    </message>
    <message>
        <source>URL:</source>
        <translation>URL:</translation>
    </message>
    <message>
        <source>HOST:</source>
        <translation>HOST:</translation>
    </message>
    <message>
        <source> Proxy Server </source>
        <translation> Proxy Server </translation>
    </message>
    <message>
        <source>Tipo:</source>
        <translation>Type:</translation>
    </message>
    <message>
        <source>Proxy:</source>
        <translation>Proxy:</translation>
    </message>
    <message>
        <source>Porta:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Username:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Password:</translation>
    </message>
    <message>
        <source>Usa DNS remoto</source>
        <translation>Use remote DNS</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>vorlina::frmProduct</name>
    <message>
        <source>Proprietà prodotto</source>
        <translation>Product properties</translation>
    </message>
    <message>
        <source>Codice</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Descrizione</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>Inserisci / visualizza i valori del filtro</source>
        <translation>Edit filter values</translation>
    </message>
    <message>
        <source>Immagine</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Comandi</source>
        <translation>Commands</translation>
    </message>
</context>
<context>
    <name>vorlina::frmPublish</name>
    <message>
        <source>Pubblica</source>
        <translation>Publish</translation>
    </message>
    <message>
        <source>P&amp;rofilo:</source>
        <translation>P&amp;rofile:</translation>
    </message>
    <message>
        <source>&amp;Nuovo...</source>
        <translation>&amp;New...</translation>
    </message>
    <message>
        <source>Rino&amp;mina...</source>
        <translation>Rena&amp;me...</translation>
    </message>
    <message>
        <source>&amp;Duplica...</source>
        <translation>&amp;Duplicate...</translation>
    </message>
    <message>
        <source>&amp;Elimina</source>
        <translation>D&amp;elete</translation>
    </message>
    <message>
        <source>Che cosa e dove</source>
        <translation>What and where</translation>
    </message>
    <message>
        <source>Dove</source>
        <translation>Where</translation>
    </message>
    <message>
        <source>&amp;Cartella:</source>
        <translation>&amp;Folder:</translation>
    </message>
    <message>
        <source>&amp;Sfoglia...</source>
        <translation>&amp;Browse...</translation>
    </message>
    <message>
        <source>&amp;Lingua:</source>
        <translation>&amp;Language:</translation>
    </message>
    <message>
        <source>Che cosa</source>
        <translation>What</translation>
    </message>
    <message>
        <source>Per ogni prodotto si vedono:</source>
        <translation>Of each product this shows:</translation>
    </message>
    <message>
        <source>Valori</source>
        <translation>Values</translation>
    </message>
    <message>
        <source>Filtri</source>
        <translation>Filters</translation>
    </message>
    <message>
        <source>Altro</source>
        <translation>Other</translation>
    </message>
    <message>
        <source>Scheda tecnica</source>
        <translation>Tech data</translation>
    </message>
    <message>
        <source>Aspetto e contatti</source>
        <translation>Look and contact</translation>
    </message>
    <message>
        <source>Aspetto</source>
        <translation>Look</translation>
    </message>
    <message>
        <source>C&amp;olore:</source>
        <translation>C&amp;olour:</translation>
    </message>
    <message>
        <source>Cara&amp;ttere:</source>
        <translation>Fon&amp;t:</translation>
    </message>
    <message>
        <source>Quello della skin</source>
        <translation>The skin&apos;s</translation>
    </message>
    <message>
        <source>Senza grazie</source>
        <translation>Sans serif</translation>
    </message>
    <message>
        <source>Con grazie</source>
        <translation>Serif</translation>
    </message>
    <message>
        <source>A larghezza fissa</source>
        <translation>Monospaced</translation>
    </message>
    <message>
        <source>Lo&amp;go:</source>
        <translation>Lo&amp;go:</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>&amp;Immagine larga:</source>
        <translation>&amp;Wide picture:</translation>
    </message>
    <message>
        <source>Immagine larga</source>
        <translation>Wide picture</translation>
    </message>
    <message>
        <source>Misura delle immagini:</source>
        <translation>Size of pictures:</translation>
    </message>
    <message>
        <source>In evidenza:</source>
        <translation>Highlights:</translation>
    </message>
    <message>
        <source>Scegli i prodotti in e&amp;videnza...</source>
        <translation>Choose the &amp;highlights...</translation>
    </message>
    <message>
        <source>Contatti</source>
        <translation>Contact</translation>
    </message>
    <message>
        <source>Indirizzo &amp;web:</source>
        <translation>Web &amp;address:</translation>
    </message>
    <message>
        <source>Orari di apert&amp;ura:</source>
        <translation>Opening ho&amp;urs:</translation>
    </message>
    <message>
        <source>Lin&amp;k alla mappa:</source>
        <translation>Map lin&amp;k:</translation>
    </message>
    <message>
        <source>Altre lingue</source>
        <translation>Other languages</translation>
    </message>
    <message>
        <source>Se lo stesso catalogo è pubblicato anche in altre lingue, l&apos;indirizzo di ciascuno:</source>
        <translation>Where the same catalog is published in other languages as well, the address of each:</translation>
    </message>
    <message>
        <source>Altre opzioni</source>
        <translation>Further options</translation>
    </message>
    <message>
        <source>&amp;Anteprima</source>
        <translation>Pre&amp;view</translation>
    </message>
    <message>
        <source>&amp;Pubblica</source>
        <translation>&amp;Publish</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Una cartella solo per questa pubblicazione.
Pubblicando di nuovo si aggiorna ciò che contiene.</source>
        <translation>A folder for this publication alone.
Publishing again updates what it holds.</translation>
    </message>
    <message>
        <source>Quella in cui sono scritti i testi del catalogo:
anche titoli e pulsanti saranno in questa lingua.</source>
        <translation>The one that the catalog&apos;s texts are written in:
headings and buttons will be in it too.</translation>
    </message>
    <message>
        <source>Dove si troverà la prima pagina: per i motori di ricerca
e per chi la condivide. Se non è ancora noto lasciare vuoto.</source>
        <translation>Where the first page will be found: for search engines and
whoever shares it. Leave it empty while it is not known.</translation>
    </message>
    <message>
        <source>Pre&amp;zzo in grande:</source>
        <translation>Large pri&amp;ce:</translation>
    </message>
    <message>
        <source>Si vede in grande, anche negli elenchi. Gli altri valori, prezzi compresi, restano
tra i dati del prodotto: a quelli da non pubblicare togliere il segno.</source>
        <translation>It shows large, also in lists. Other values, prices included, stay among
the product&apos;s details: untick those that are not to be published.</translation>
    </message>
</context>
<context>
    <name>vorlina::frmPublished</name>
    <message>
        <source>Pubblicazione</source>
        <translation>Publication</translation>
    </message>
    <message>
        <source>La pubblicazione è pronta.</source>
        <translation>The publication is ready.</translation>
    </message>
    <message>
        <source>&amp;Dove:</source>
        <translation>&amp;Where:</translation>
    </message>
    <message>
        <source>Da &amp;controllare:</source>
        <translation>To be chec&amp;ked:</translation>
    </message>
    <message>
        <source>Da controllare</source>
        <translation>To be checked</translation>
    </message>
    <message>
        <source>Codice</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Prodotto</source>
        <translation>Product</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>C&amp;opia il resoconto</source>
        <translation>Copy the &amp;report</translation>
    </message>
    <message>
        <source>&amp;Apri</source>
        <translation>&amp;Open</translation>
    </message>
    <message>
        <source>C&amp;hiudi</source>
        <translation>C&amp;lose</translation>
    </message>
</context>
<context>
    <name>vorlina::frmSplash</name>
    <message>
        <source>Vorlina</source>
        <translation>Vorlina</translation>
    </message>
    <message>
        <source>Versione</source>
        <translation>Version</translation>
    </message>
</context>
<context>
    <name>vorlina::frmSystemInfo</name>
    <message>
        <source>Informazioni sul sistema</source>
        <translation>System information</translation>
    </message>
    <message>
        <source>Sistema</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Che cosa</source>
        <translation>What</translation>
    </message>
    <message>
        <source>Valore</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>Librerie</source>
        <translation>Libraries</translation>
    </message>
    <message>
        <source>Libreria</source>
        <translation>Library</translation>
    </message>
    <message>
        <source>Versione</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Licenza</source>
        <translation>Licence</translation>
    </message>
    <message>
        <source>&amp;Copia</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>C&amp;hiudi</source>
        <translation>C&amp;lose</translation>
    </message>
</context>
<context>
    <name>vorlina::frmTechData</name>
    <message>
        <source>Scheda tecnica</source>
        <translation>Tech Data</translation>
    </message>
    <message>
        <source>Invio apre la caratteristica in una finestra più grande.</source>
        <translation>Enter opens the feature in a larger window.</translation>
    </message>
</context>
<context>
    <name>vorlina::frmTour</name>
    <message>
        <source>Tour</source>
        <translation>Tour</translation>
    </message>
    <message>
        <source>&amp;Indietro</source>
        <translation>&amp;Back</translation>
    </message>
    <message>
        <source>&amp;Pausa</source>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>&amp;Avanti</source>
        <translation>&amp;Next</translation>
    </message>
    <message>
        <source>C&amp;hiudi</source>
        <translation>C&amp;lose</translation>
    </message>
</context>
</TS>
