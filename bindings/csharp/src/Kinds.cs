namespace Korvane.Signpad
{
    /// <summary>A tap on the pad's buttons.</summary>
    public enum Tap
    {
        /// <summary>The signer wants to begin anew, or not to sign.</summary>
        Cancel,
        /// <summary>The signer is done.</summary>
        Confirm,
    }

    /// <summary>Formats of pictures.</summary>
    public enum ImageKind
    {
        /// <summary>Without loss, large.</summary>
        Bmp = EncodedImageType.Bitmap,
        /// <summary>With some loss.</summary>
        Jpeg = EncodedImageType.Jpeg,
        /// <summary>Without loss; white is see-through unless one says otherwise.</summary>
        Png = EncodedImageType.Png,
    }
}
