<SignatureFile>
<Version>1</Version>
<Created>2008/06/21 09:30:00</Created>
<CRC32>D88DCD3F</CRC32>
<OrigLocation>././././././././././././././././././././././././././././././././././././././././././././././././././././././././././././././././signed-mast.dlr</OrigLocation>
<Signature>J. Marlow, Harrow Hill</Signature>
